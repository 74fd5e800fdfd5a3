// The document of a pulseaudio output: a channel's audio on a PulseAudio sink.
#pragma once

#include "schema/emit_json.hpp"

class EmitPulseAudio : public EmitJson {
public:
    Document emitJson() const override;
};
