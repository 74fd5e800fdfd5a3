// The members of an alsa output's document, in their order.
#pragma once

#include "schema/fields/audio_normalizer.hpp"
#include "schema/fields/output.hpp"

namespace fields {

using enum Coding;

inline constexpr Row ALSA[] = {
    {"", "", OUTPUT_START},
    {"driver", "driver", NULLABLE_CONSTANT, "alsa", ""},
    {"", "", AUDIO_SOURCE},
    {"alsa_output", "alsa output", TEXT, "default", "ALSA output device ('default', 'hdmi', etc..)"},
    {"", "", AUDIO_FORMAT},
    {"allow_channel_mapping", "allow channel mapping", TEXT, "0",
        "Allow ALSA to map and convert audio channels"},
    {"allow_resampling", "allow resampling", TEXT, "0", "Allow ALSA to resample audio output"},
    {"", "", AUDIO_NORMALIZER},
    {"active", "active", NULLABLE_TEXT, "", "Status display, whether or not the audio output is open",
        STATUS},
    {"active_mixer_controls", "active mixer controls", NULLABLE_TEXT, "",
        "Status display, whether or not this output is able to use the hardware mixer", STATUS},
    {"alsa_buffer_size", "alsa buffer size", NULLABLE_TEXT, "", "Buffer size of the audio output", STATUS},
    {"", "", AUDIO_OUTPUT_END},
    {"audio_last_notes", "audio last notes", NULLABLE_TEXT, "",
        "Notes about the ALSA hardware and configuration.", DEBUG_STATUS},
};

}  // namespace fields
