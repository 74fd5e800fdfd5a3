// The document of a video passthrough input.
#pragma once

#include "schema/emit_json.hpp"
#include "schema/fields/video_passthru.hpp"

class EmitVideoPassthru : public EmitJson {
public:
    Document emitJson() const override { return members(PACKED<fields::VIDEO_PASSTHRU>); }
};
