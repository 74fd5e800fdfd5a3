#include "schema/emit/emit_sierra_video_aspen_hdsdi.hpp"

#include "schema/fields/network_router_fields.hpp"

Document EmitSierraVideoAspenHdsdi::emitJson() const
{
    return fields(SIERRA_VIDEO_ASPEN_HDSDI_FIELDS);
}
