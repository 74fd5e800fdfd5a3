// Settings of an internet_mpeg output from its document.
#pragma once

#include "schema/consume_json.hpp"
#include "schema/fields/internet_mpeg.hpp"

class ConsumeInternetMpeg : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override { create_items(PACKED<fields::INTERNET_MPEG>); }
};
