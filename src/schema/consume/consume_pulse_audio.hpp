// Settings of a pulseaudio output from its document.
#pragma once

#include "schema/consume_json.hpp"
#include "schema/fields/pulse_audio.hpp"

class ConsumePulseAudio : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override { create_items(PACKED<fields::PULSE_AUDIO>); }
};
