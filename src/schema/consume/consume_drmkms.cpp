#include "schema/consume/consume_drmkms.hpp"

#include "schema/fields/drmkms.hpp"

void ConsumeDrmkms::createItems()
{
    create_items(PACKED<fields::DRMKMS>);
}
