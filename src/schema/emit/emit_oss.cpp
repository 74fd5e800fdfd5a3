#include "schema/emit/emit_oss.hpp"

#include "schema/fields/audio_normalizer_fields.hpp"
#include "schema/fields/oss_fields.hpp"

Document EmitOss::emitJson() const
{
    Document document = fields(OSS_FIELDS);
    document.merge(fields(audio_normalizer_fields()));
    document.merge(fields(OSS_STATUS_FIELDS));
    return document;
}
