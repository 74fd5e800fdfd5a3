// Settings of an internet_mpeg output from its document.
#pragma once

#include "schema/consume_json.hpp"

class ConsumeInternetMpeg : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override;
};
