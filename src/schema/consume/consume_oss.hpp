// Settings of an oss output from its document.
#pragma once

#include "schema/consume_json.hpp"

class ConsumeOss : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override;
};
