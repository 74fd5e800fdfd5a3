// The members of a pulseaudio output's document, in their order.
#pragma once

#include "schema/fields/audio_normalizer.hpp"
#include "schema/fields/output.hpp"

namespace fields {

using enum Coding;

inline constexpr Row PULSE_AUDIO[] = {
    {"", "", OUTPUT_START},
    {"driver", NULLABLE_CONSTANT, "pulseaudio", ""},
    {"", "", AUDIO_SOURCE},
    {"", "", AUDIO_FORMAT},
    {"", "", AUDIO_NORMALIZER},
    {"active", NULLABLE_TEXT, "Status display, whether or not the audio output is open", STATUS},
    {"", "", AUDIO_OUTPUT_END},
    {"audio last notes", NULLABLE_TEXT, "Notes about PulseAudio.", DEBUG_STATUS},
    {"pulseaudio sink", NULLABLE_TEXT, "PulseAudio sink device to send audio to"},
};

}  // namespace fields
