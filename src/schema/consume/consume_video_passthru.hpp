// Settings of a video passthrough input from its document.
#pragma once

#include "schema/consume_json.hpp"
#include "schema/fields/video_passthru.hpp"

class ConsumeVideoPassthru : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override { create_items(PACKED<fields::VIDEO_PASSTHRU>); }
};
