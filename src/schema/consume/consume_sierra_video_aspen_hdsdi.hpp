// Settings of a Sierra Video Aspen HD-SDI router from its document.
#pragma once

#include "schema/consume_json.hpp"

class ConsumeSierraVideoAspenHdsdi : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override;
};
