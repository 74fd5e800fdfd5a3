#include "schema/consume/consume_knox_rsii.hpp"

#include "schema/fields/serial_router_fields.hpp"

void ConsumeKnoxRsii::createItems()
{
    create_items(KNOX_RSII_FIELDS, top());
}
