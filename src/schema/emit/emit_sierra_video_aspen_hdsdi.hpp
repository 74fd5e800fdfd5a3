// The document of a Sierra Video Aspen HD-SDI router.
#pragma once

#include "schema/emit_json.hpp"
#include "schema/fields/network_router.hpp"

class EmitSierraVideoAspenHdsdi : public EmitJson {
public:
    Document emitJson() const override { return members(PACKED<fields::SIERRA_VIDEO_ASPEN_HDSDI>); }
};
