#include "schema/consume/consume_knox_rs8x8hb.hpp"

#include "schema/fields/serial_router_fields.hpp"

void ConsumeKnoxRs8x8hb::createItems()
{
    create_items(KNOX_RS8X8HB_FIELDS, top());
}
