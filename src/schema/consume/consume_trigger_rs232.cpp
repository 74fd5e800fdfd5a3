#include "schema/consume/consume_trigger_rs232.hpp"

#include "schema/fields/trigger_rs232.hpp"

void ConsumeTriggerRs232::createItems()
{
    create_items(PACKED<fields::TRIGGER_RS232>);
}
