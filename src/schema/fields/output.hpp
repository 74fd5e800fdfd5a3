// What the documents of most outputs have in common.
#pragma once

#include "schema/row.hpp"

namespace fields {

using enum Coding;

inline constexpr Row OUTPUT_START[] = {
    // A text, unlike the flag below it.
    {"autostart", NULLABLE_TEXT, "Whether or not the item is automatically started"},
    {"autorestart", BOOLEAN, "0",
        "If set, start the item through a management tool that auto-restarts the item on failure"},
};

// Of the outputs to a sound card.
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

inline constexpr Row AUTOSTART_ITEM[] = {
    {"autostart item", NULLABLE_TEXT,
        "If set, the output will attempt to start the item it feeds from when you start the output, and will attempt to restart the item automatically."},
};

inline constexpr Row AUDIO_OUTPUT_END[] = {
    {"audio last error", NULLABLE_TEXT, "Last error encountered when trying to open the audio output",
        STATUS},
    {"", "", AUTOSTART_ITEM},
};

}  // namespace fields
