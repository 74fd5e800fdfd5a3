// Settings of an x11 output from its document. One handler for each object and member, named after its
// path.
#pragma once

#include "schema/consume_json.hpp"
#include "schema/fields/x11.hpp"

class ConsumeX11 : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override { create_items(PACKED<fields::X11>); }
};
