// Settings of a video passthrough input from its document.
#pragma once

#include "schema/consume_json.hpp"

class ConsumeVideoPassthru : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override;
};
