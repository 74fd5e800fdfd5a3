#include "schema/consume/consume_channel.hpp"

void ConsumerChannel::createItems()
{
    Params params = top();
    create_item("channel name", params.string("name"));
}
