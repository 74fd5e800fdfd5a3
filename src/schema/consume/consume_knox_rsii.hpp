// Settings of a Knox RSII router from its document.
#pragma once

#include "schema/consume_json.hpp"
#include "schema/fields/serial_router.hpp"

class ConsumeKnoxRsii : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override { create_items(PACKED<fields::KNOX_RSII>); }
};
