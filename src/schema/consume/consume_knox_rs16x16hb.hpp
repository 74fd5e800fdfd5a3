// Settings of a Knox RS16x16HB router from its document.
#pragma once

#include "schema/consume_json.hpp"

class ConsumeKnoxRs16x16hb : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override;
};
