#include "schema/emit/emit_video_passthru.hpp"

#include "schema/fields/video_passthru_fields.hpp"

Document EmitVideoPassthru::emitJson() const
{
    return fields(VIDEO_PASSTHRU_FIELDS);
}
