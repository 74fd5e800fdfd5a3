#include "schema/consume/consume_shout_cast.hpp"

#include "schema/fields/shout_cast.hpp"

void ConsumeShoutCast::createItems()
{
    create_items(PACKED<fields::SHOUT_CAST>);
}
