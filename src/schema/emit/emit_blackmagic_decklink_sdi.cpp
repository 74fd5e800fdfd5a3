#include "schema/emit/emit_blackmagic_decklink_sdi.hpp"

#include "schema/fields/audio_normalizer_fields.hpp"
#include "schema/fields/blackmagic_decklink_sdi_fields.hpp"

Document EmitBlackmagicDecklinkSdi::emitJson() const
{
    Document document = fields(BLACKMAGIC_DECKLINK_SDI_FIELDS);
    document.merge(fields(audio_normalizer_fields()));
    document.merge(fields(BLACKMAGIC_DECKLINK_SDI_STATUS_FIELDS));
    return document;
}
