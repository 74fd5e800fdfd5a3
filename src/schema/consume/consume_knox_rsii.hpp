// Settings of a Knox RSII router from its document.
#pragma once

#include "schema/consume_json.hpp"

class ConsumeKnoxRsii : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override;
};
