// The document of an alsa output: a channel's audio on an ALSA device.
#pragma once

#include "schema/emit_json.hpp"
#include "schema/fields/alsa.hpp"

class EmitAlsa : public EmitJson {
public:
    Document emitJson() const override { return members(PACKED<fields::ALSA>); }
};
