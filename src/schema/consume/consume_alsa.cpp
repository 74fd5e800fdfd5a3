#include "schema/consume/consume_alsa.hpp"

#include "schema/fields/alsa.hpp"

void ConsumeAlsa::createItems()
{
    create_items(PACKED<fields::ALSA>);
}
