#include "schema/emit/emit_video_passthru_v2.hpp"

#include "schema/fields/video_passthru.hpp"

Document EmitVideoPassthru2::emitJson() const
{
    return members(PACKED<fields::VIDEO_PASSTHRU>);
}
