// Settings of an RS-232 trigger from its document.
#pragma once

#include "schema/consume_json.hpp"
#include "schema/fields/trigger_rs232.hpp"

class ConsumeTriggerRs232 : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override { create_items(PACKED<fields::TRIGGER_RS232>); }
};
