// The document of a Sierra Video Aspen HD-SDI router.
#pragma once

#include "schema/emit_json.hpp"

class EmitSierraVideoAspenHdsdi : public EmitJson {
public:
    Document emitJson() const override;
};
