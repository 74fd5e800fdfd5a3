// The document of an fbdev output: a channel on a Linux framebuffer.
#pragma once

#include "schema/emit_json.hpp"

class EmitFbdev : public EmitJson {
public:
    Document emitJson() const override;
};
