// Settings of a blackmagic_decklink_sdi output from its document.
#pragma once

#include "schema/consume_json.hpp"
#include "schema/fields/blackmagic_decklink_sdi.hpp"

class ConsumeBlackmagicDecklinkSdi : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override { create_items(PACKED<fields::BLACKMAGIC_DECKLINK_SDI>); }
};
