// Settings of a Sierra Video Aspen HD-SDI router from its document.
#pragma once

#include "schema/consume_json.hpp"
#include "schema/fields/network_router.hpp"

class ConsumeSierraVideoAspenHdsdi : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override { create_items(PACKED<fields::SIERRA_VIDEO_ASPEN_HDSDI>); }
};
