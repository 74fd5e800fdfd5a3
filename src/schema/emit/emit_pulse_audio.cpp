#include "schema/emit/emit_pulse_audio.hpp"

#include "schema/fields/pulse_audio.hpp"

Document EmitPulseAudio::emitJson() const
{
    return members(PACKED<fields::PULSE_AUDIO>);
}
