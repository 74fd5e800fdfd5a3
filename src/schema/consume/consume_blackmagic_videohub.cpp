#include "schema/consume/consume_blackmagic_videohub.hpp"

#include "schema/fields/network_router.hpp"

void ConsumeBlackmagicVideohub::createItems()
{
    create_items(PACKED<fields::BLACKMAGIC_VIDEOHUB>);
}
