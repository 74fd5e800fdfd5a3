#include "schema/consume/consume_schedule_push.hpp"

#include "schema/fields/schedule_push_fields.hpp"

void ConsumeSchedulePush::createItems()
{
    create_items(SCHEDULE_PUSH_FIELDS, top());
}
