#include "schema/emit/emit_pulse_audio.hpp"

#include "schema/fields/audio_normalizer_fields.hpp"
#include "schema/fields/pulse_audio_fields.hpp"

Document EmitPulseAudio::emitJson() const
{
    Document document = fields(PULSE_AUDIO_FIELDS);
    document.merge(fields(audio_normalizer_fields()));
    document.merge(fields(PULSE_AUDIO_STATUS_FIELDS));
    return document;
}
