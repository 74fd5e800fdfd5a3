// Settings of an x11 output from its document. One handler for each object and member, named after its
// path.
#pragma once

#include "schema/consume_json.hpp"

class ConsumeX11 : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override;
};
