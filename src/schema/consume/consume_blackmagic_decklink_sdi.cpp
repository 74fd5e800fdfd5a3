#include "schema/consume/consume_blackmagic_decklink_sdi.hpp"

#include "schema/fields/audio_normalizer_fields.hpp"
#include "schema/fields/blackmagic_decklink_sdi_fields.hpp"

void ConsumeBlackmagicDecklinkSdi::createItems()
{
    create_items(BLACKMAGIC_DECKLINK_SDI_FIELDS, top());
    create_items(audio_normalizer_fields(), top());
    create_items(BLACKMAGIC_DECKLINK_SDI_STATUS_FIELDS, top());
}
