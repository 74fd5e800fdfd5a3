// Settings of a shoutcast output from its document.
#pragma once

#include "schema/consume_json.hpp"

class ConsumeShoutCast : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override;
};
