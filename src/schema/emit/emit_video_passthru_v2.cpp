#include "schema/emit/emit_video_passthru_v2.hpp"

#include "schema/fields/video_passthru_fields.hpp"

Document EmitVideoPassthru2::emitJson() const
{
    return fields(VIDEO_PASSTHRU_FIELDS);
}
