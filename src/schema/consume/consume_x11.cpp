#include "schema/consume/consume_x11.hpp"

#include "schema/fields/x11.hpp"

void ConsumeX11::createItems()
{
    create_items(PACKED<fields::X11>);
}
