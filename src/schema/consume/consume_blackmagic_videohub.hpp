// Settings of a Blackmagic Videohub router from its document.
#pragma once

#include "schema/consume_json.hpp"

class ConsumeBlackmagicVideohub : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override;
};
