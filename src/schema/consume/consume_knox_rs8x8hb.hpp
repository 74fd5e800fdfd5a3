// Settings of a Knox RS8x8HB router from its document.
#pragma once

#include "schema/consume_json.hpp"
#include "schema/fields/serial_router.hpp"

class ConsumeKnoxRs8x8hb : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override { create_items(PACKED<fields::KNOX_RS8X8HB>); }
};
