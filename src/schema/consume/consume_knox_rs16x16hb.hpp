// Settings of a Knox RS16x16HB router from its document.
#pragma once

#include "schema/consume_json.hpp"
#include "schema/fields/serial_router.hpp"

class ConsumeKnoxRs16x16hb : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override { create_items(PACKED<fields::KNOX_RS16X16HB>); }
};
