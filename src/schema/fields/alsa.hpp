// The members of an alsa output's document, in their order.
#pragma once

#include "schema/fields/audio_normalizer.hpp"
#include "schema/fields/output.hpp"

namespace fields {

using enum Coding;

inline constexpr Row ALSA[] = {
    {"", "", OUTPUT_START},
    {"driver", "driver", NULLABLE_CONSTANT, "alsa", ""},
    {"item", "item", NULLABLE_TEXT, "", "Channel path to feed from"},
    {"audio_volume", "audio volume", TEXT, "100", "Audio volume percent (0..100)"},
    {"alsa_output", "alsa output", TEXT, "default", "ALSA output device ('default', 'hdmi', etc..)"},
    {"audio_rate", "audio rate", NULLABLE_TEXT, "",
        "Audio sample rate, in Hz, to render output at. Actual sample rate is constrained by sound card capabilities."},
    {"audio_channels", "audio channels", NULLABLE_TEXT, "",
        "Audio channel count to render output at. Typical: 1 (mono), 2 (stereo), 6 (5.1 surround). Actual channel count is constrained by sound card capabilities."},
    {"allow_channel_mapping", "allow channel mapping", TEXT, "0",
        "Allow ALSA to map and convert audio channels"},
    {"allow_resampling", "allow resampling", TEXT, "0", "Allow ALSA to resample audio output"},
    {"", "", AUDIO_NORMALIZER},
    {"active", "active", NULLABLE_TEXT, "", "Status display, whether or not the audio output is open",
        STATUS},
    {"active_mixer_controls", "active mixer controls", NULLABLE_TEXT, "",
        "Status display, whether or not this output is able to use the hardware mixer", STATUS},
    {"alsa_buffer_size", "alsa buffer size", NULLABLE_TEXT, "", "Buffer size of the audio output", STATUS},
    {"audio_last_error", "audio last error", NULLABLE_TEXT, "",
        "Last error encountered when trying to open the audio output", STATUS},
    {"", "", AUTOSTART_ITEM},
    {"audio_last_notes", "audio last notes", NULLABLE_TEXT, "",
        "Notes about the ALSA hardware and configuration.", DEBUG_STATUS},
};

}  // namespace fields
