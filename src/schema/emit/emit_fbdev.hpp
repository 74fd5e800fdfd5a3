// The document of an fbdev output: a channel on a Linux framebuffer.
#pragma once

#include "schema/emit_json.hpp"
#include "schema/fields/fbdev.hpp"

class EmitFbdev : public EmitJson {
public:
    Document emitJson() const override { return members(PACKED<fields::FBDEV>); }
};
