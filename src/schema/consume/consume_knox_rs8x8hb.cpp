#include "schema/consume/consume_knox_rs8x8hb.hpp"

#include "schema/fields/serial_router.hpp"

void ConsumeKnoxRs8x8hb::createItems()
{
    create_items(PACKED<fields::KNOX_RS8X8HB>);
}
