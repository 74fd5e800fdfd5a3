// Settings of an alsa output from its document.
#pragma once

#include "schema/consume_json.hpp"
#include "schema/fields/alsa.hpp"

class ConsumeAlsa : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override { create_items(PACKED<fields::ALSA>); }
};
