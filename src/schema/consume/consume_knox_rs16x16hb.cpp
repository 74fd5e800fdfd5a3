#include "schema/consume/consume_knox_rs16x16hb.hpp"

#include "schema/fields/serial_router_fields.hpp"

void ConsumeKnoxRs16x16hb::createItems()
{
    create_items(KNOX_RS16X16HB_FIELDS, top());
}
