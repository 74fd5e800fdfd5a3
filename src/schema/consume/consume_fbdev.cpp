#include "schema/consume/consume_fbdev.hpp"

#include "schema/fields/fbdev.hpp"

void ConsumeFbdev::createItems()
{
    create_items(PACKED<fields::FBDEV>);
}
