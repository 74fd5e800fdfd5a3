// Settings of an oss output from its document.
#pragma once

#include "schema/consume_json.hpp"
#include "schema/fields/oss.hpp"

class ConsumeOss : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override { create_items(PACKED<fields::OSS>); }
};
