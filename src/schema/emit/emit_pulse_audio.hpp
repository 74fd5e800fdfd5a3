// The document of a pulseaudio output: a channel's audio on a PulseAudio sink.
#pragma once

#include "schema/emit_json.hpp"
#include "schema/fields/pulse_audio.hpp"

class EmitPulseAudio : public EmitJson {
public:
    Document emitJson() const override { return members(PACKED<fields::PULSE_AUDIO>); }
};
