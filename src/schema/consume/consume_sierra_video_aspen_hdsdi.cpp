#include "schema/consume/consume_sierra_video_aspen_hdsdi.hpp"

#include "schema/fields/network_router.hpp"

void ConsumeSierraVideoAspenHdsdi::createItems()
{
    create_items(PACKED<fields::SIERRA_VIDEO_ASPEN_HDSDI>);
}
