// Settings of a pulseaudio output from its document.
#pragma once

#include "schema/consume_json.hpp"

class ConsumePulseAudio : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override;
};
