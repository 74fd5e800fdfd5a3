// Settings of a blackmagic_decklink_sdi output from its document.
#pragma once

#include "schema/consume_json.hpp"

class ConsumeBlackmagicDecklinkSdi : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override;
};
