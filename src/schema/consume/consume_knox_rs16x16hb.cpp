#include "schema/consume/consume_knox_rs16x16hb.hpp"

#include "schema/fields/serial_router.hpp"

void ConsumeKnoxRs16x16hb::createItems()
{
    create_items(PACKED<fields::KNOX_RS16X16HB>);
}
