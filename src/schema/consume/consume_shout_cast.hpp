// Settings of a shoutcast output from its document.
#pragma once

#include "schema/consume_json.hpp"
#include "schema/fields/shout_cast.hpp"

class ConsumeShoutCast : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override { create_items(PACKED<fields::SHOUT_CAST>); }
};
