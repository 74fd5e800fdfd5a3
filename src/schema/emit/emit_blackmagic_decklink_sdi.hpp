// The document of a blackmagic_decklink_sdi output: a channel on an SDI card.
#pragma once

#include "schema/emit_json.hpp"
#include "schema/fields/blackmagic_decklink_sdi.hpp"

class EmitBlackmagicDecklinkSdi : public EmitJson {
public:
    Document emitJson() const override { return members(PACKED<fields::BLACKMAGIC_DECKLINK_SDI>); }
};
