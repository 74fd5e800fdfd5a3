// Settings of an fbdev output from its document.
#pragma once

#include "schema/consume_json.hpp"
#include "schema/fields/fbdev.hpp"

class ConsumeFbdev : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override { create_items(PACKED<fields::FBDEV>); }
};
