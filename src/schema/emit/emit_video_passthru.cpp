#include "schema/emit/emit_video_passthru.hpp"

#include "schema/fields/video_passthru.hpp"

Document EmitVideoPassthru::emitJson() const
{
    return members(PACKED<fields::VIDEO_PASSTHRU>);
}
