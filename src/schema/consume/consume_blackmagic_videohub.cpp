#include "schema/consume/consume_blackmagic_videohub.hpp"

#include "schema/fields/network_router_fields.hpp"

void ConsumeBlackmagicVideohub::createItems()
{
    create_items(BLACKMAGIC_VIDEOHUB_FIELDS, top());
}
