#include "schema/consume/consume_sierra_video_aspen_hdsdi.hpp"

#include "schema/fields/network_router_fields.hpp"

void ConsumeSierraVideoAspenHdsdi::createItems()
{
    create_items(SIERRA_VIDEO_ASPEN_HDSDI_FIELDS, top());
}
