#include "schema/emit/emit_alsa.hpp"

#include "schema/fields/alsa_fields.hpp"
#include "schema/fields/audio_normalizer_fields.hpp"

Document EmitAlsa::emitJson() const
{
    Document document = fields(ALSA_FIELDS);
    document.merge(fields(audio_normalizer_fields()));
    document.merge(fields(ALSA_STATUS_FIELDS));
    return document;
}
