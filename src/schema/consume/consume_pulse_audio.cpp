#include "schema/consume/consume_pulse_audio.hpp"

#include "schema/fields/audio_normalizer_fields.hpp"
#include "schema/fields/pulse_audio_fields.hpp"

void ConsumePulseAudio::createItems()
{
    create_items(PULSE_AUDIO_FIELDS, top());
    create_items(audio_normalizer_fields(), top());
    create_items(PULSE_AUDIO_STATUS_FIELDS, top());
}
