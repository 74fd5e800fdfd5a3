#include "schema/consume/consume_trigger_rs232.hpp"

#include "schema/fields/trigger_rs232_fields.hpp"

void ConsumeTriggerRs232::createItems()
{
    create_items(TRIGGER_RS232_FIELDS, top());
}
