#include "schema/consume/consume_knox_rsii.hpp"

#include "schema/fields/serial_router.hpp"

void ConsumeKnoxRsii::createItems()
{
    create_items(PACKED<fields::KNOX_RSII>);
}
