// Settings of a Knox RS8x8HB router from its document.
#pragma once

#include "schema/consume_json.hpp"

class ConsumeKnoxRs8x8hb : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override;
};
