#include "schema/consume/consume_schedule_push.hpp"

#include "schema/fields/schedule_push.hpp"

void ConsumeSchedulePush::createItems()
{
    create_items(PACKED<fields::SCHEDULE_PUSH>);
}
