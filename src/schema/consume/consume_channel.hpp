// Settings of a channel from its document; the reader of every document without a known driver word.
#pragma once

#include "schema/consume_json.hpp"

class ConsumerChannel : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override;
};
