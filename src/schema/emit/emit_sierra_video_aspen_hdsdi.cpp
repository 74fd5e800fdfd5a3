#include "schema/emit/emit_sierra_video_aspen_hdsdi.hpp"

#include "schema/fields/network_router.hpp"

Document EmitSierraVideoAspenHdsdi::emitJson() const
{
    return members(PACKED<fields::SIERRA_VIDEO_ASPEN_HDSDI>);
}
