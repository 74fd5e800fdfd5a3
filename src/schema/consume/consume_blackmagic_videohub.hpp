// Settings of a Blackmagic Videohub router from its document.
#pragma once

#include "schema/consume_json.hpp"
#include "schema/fields/network_router.hpp"

class ConsumeBlackmagicVideohub : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override { create_items(PACKED<fields::BLACKMAGIC_VIDEOHUB>); }
};
