// The document of an x11 output: a channel in a window on an X server.
#pragma once

#include "schema/emit_json.hpp"
#include "schema/fields/x11.hpp"

class EmitX11 : public EmitJson {
public:
    Document emitJson() const override { return members(PACKED<fields::X11>); }
};
