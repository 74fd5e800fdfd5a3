#include "schema/consume/consume_fbdev.hpp"

#include "schema/fields/fbdev_fields.hpp"

void ConsumeFbdev::createItems()
{
    create_items(FBDEV_FIELDS, top());
}
