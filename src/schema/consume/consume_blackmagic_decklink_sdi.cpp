#include "schema/consume/consume_blackmagic_decklink_sdi.hpp"

#include "schema/fields/blackmagic_decklink_sdi.hpp"

void ConsumeBlackmagicDecklinkSdi::createItems()
{
    create_items(PACKED<fields::BLACKMAGIC_DECKLINK_SDI>);
}
