// The members of the documents of outputs to a sound card, in their order.
#pragma once

#include "schema/fields/audio_normalizer.hpp"
#include "schema/fields/output.hpp"

namespace fields {

inline constexpr Row AUDIO_SOURCE[] = {
    {"item", NULLABLE_TEXT, "Channel path to feed from"},
    {"audio volume", TEXT, "100", "Audio volume percent (0..100)"},
};
inline constexpr Row AUDIO_FORMAT[] = {
    {"audio rate", NULLABLE_TEXT,
        "Audio sample rate, in Hz, to render output at. Actual sample rate is constrained by sound card capabilities."},
    {"audio channels", NULLABLE_TEXT,
        "Audio channel count to render output at. Typical: 1 (mono), 2 (stereo), 6 (5.1 surround). Actual channel count is constrained by sound card capabilities."},
};

inline constexpr Row AUDIO_OUTPUT_END[] = {
    {"audio last error", NULLABLE_TEXT, "Last error encountered when trying to open the audio output",
        STATUS},
    {"", "", AUTOSTART_ITEM},
};

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

inline constexpr Row OSS[] = {
    {"", "", OUTPUT_START},
    {"driver", NULLABLE_CONSTANT, "oss", ""},
    {"", "", AUDIO_SOURCE},
    {"", "", AUDIO_FORMAT},
    {"oss output", NULLABLE_TEXT, "OSS output device index"},
    {"", "", AUDIO_NORMALIZER},
    {"active", NULLABLE_TEXT, "Status, whether or not the output to the sound card is active", STATUS},
    {"oss buffer size", NULLABLE_TEXT, "Status, buffer size to the sound card", STATUS},
    {"", "", AUDIO_OUTPUT_END},
};

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
