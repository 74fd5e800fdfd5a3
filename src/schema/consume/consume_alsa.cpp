#include "schema/consume/consume_alsa.hpp"

#include "schema/fields/alsa_fields.hpp"
#include "schema/fields/audio_normalizer_fields.hpp"

void ConsumeAlsa::createItems()
{
    create_items(ALSA_FIELDS, top());
    create_items(audio_normalizer_fields(), top());
    create_items(ALSA_STATUS_FIELDS, top());
}
