// Settings of a drmkms output from its document. One handler for each object and member, named after its
// path.
#pragma once

#include "schema/consume_json.hpp"
#include "schema/fields/drmkms.hpp"

class ConsumeDrmkms : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override { create_items(PACKED<fields::DRMKMS>); }
};
