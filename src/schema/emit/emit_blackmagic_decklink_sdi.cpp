#include "schema/emit/emit_blackmagic_decklink_sdi.hpp"

#include "schema/fields/blackmagic_decklink_sdi.hpp"

Document EmitBlackmagicDecklinkSdi::emitJson() const
{
    return members(PACKED<fields::BLACKMAGIC_DECKLINK_SDI>);
}
