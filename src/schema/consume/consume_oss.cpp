#include "schema/consume/consume_oss.hpp"

#include "schema/fields/oss.hpp"

void ConsumeOss::createItems()
{
    create_items(PACKED<fields::OSS>);
}
