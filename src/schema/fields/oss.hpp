// The members of an oss output's document, in their order.
#pragma once

#include "schema/fields/audio_normalizer.hpp"
#include "schema/fields/output.hpp"

namespace fields {

using enum Coding;

inline constexpr Row OSS[] = {
    {"", "", OUTPUT_START},
    {"driver", "driver", NULLABLE_CONSTANT, "oss", ""},
    {"item", "item", NULLABLE_TEXT, "", "Channel path to feed from"},
    {"audio_volume", "audio volume", TEXT, "100", "Audio volume percent (0..100)"},
    {"audio_rate", "audio rate", NULLABLE_TEXT, "",
        "Audio sample rate, in Hz, to render output at. Actual sample rate is constrained by sound card capabilities."},
    {"audio_channels", "audio channels", NULLABLE_TEXT, "",
        "Audio channel count to render output at. Typical: 1 (mono), 2 (stereo), 6 (5.1 surround). Actual channel count is constrained by sound card capabilities."},
    {"oss_output", "oss output", NULLABLE_TEXT, "", "OSS output device index"},
    {"", "", AUDIO_NORMALIZER},
    {"active", "active", NULLABLE_TEXT, "", "Status, whether or not the output to the sound card is active",
        STATUS},
    {"oss_buffer_size", "oss buffer size", NULLABLE_TEXT, "", "Status, buffer size to the sound card",
        STATUS},
    {"audio_last_error", "audio last error", NULLABLE_TEXT, "",
        "Last error encountered when trying to open the audio output", STATUS},
    {"", "", AUTOSTART_ITEM},
};

}  // namespace fields
