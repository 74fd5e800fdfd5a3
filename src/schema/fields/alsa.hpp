// The members of an alsa output's document, in their order.
#pragma once

#include "schema/fields/audio_normalizer.hpp"
#include "schema/fields/output.hpp"

namespace fields {

using enum Coding;

inline constexpr Row ALSA[] = {
    {"", "", OUTPUT_START},
    {"driver", NULLABLE_CONSTANT, "alsa", ""},
    {"", "", AUDIO_SOURCE},
    {"alsa output", TEXT, "default", "ALSA output device ('default', 'hdmi', etc..)"},
    {"", "", AUDIO_FORMAT},
    {"allow channel mapping", TEXT, "0", "Allow ALSA to map and convert audio channels"},
    {"allow resampling", TEXT, "0", "Allow ALSA to resample audio output"},
    {"", "", AUDIO_NORMALIZER},
    {"active", NULLABLE_TEXT, "Status display, whether or not the audio output is open", STATUS},
    {"active mixer controls", NULLABLE_TEXT,
        "Status display, whether or not this output is able to use the hardware mixer", STATUS},
    {"alsa buffer size", NULLABLE_TEXT, "Buffer size of the audio output", STATUS},
    {"", "", AUDIO_OUTPUT_END},
    {"audio last notes", NULLABLE_TEXT, "Notes about the ALSA hardware and configuration.", DEBUG_STATUS},
};

}  // namespace fields
