// Settings of a schedule_push output from its document.
#pragma once

#include "schema/consume_json.hpp"
#include "schema/fields/schedule_push.hpp"

class ConsumeSchedulePush : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override { create_items(PACKED<fields::SCHEDULE_PUSH>); }
};
