// The document of an alsa output: a channel's audio on an ALSA device.
#pragma once

#include "schema/emit_json.hpp"

class EmitAlsa : public EmitJson {
public:
    Document emitJson() const override;
};
