// The members of an oss output's document in front of and behind the audio normalizer's, in their order.
#pragma once

#include "schema/field.hpp"

inline constexpr Field OSS_FIELDS[] = {
    {"autostart", "autostart", Coding::NULLABLE_TEXT, "", "Whether or not the item is automatically started"},
    {"autorestart", "autorestart", Coding::BOOLEAN, "0",
        "If set, start the item through a management tool that auto-restarts the item on failure"},
    {"driver", "driver", Coding::CONSTANT, "oss", ""},
    {"item", "item", Coding::NULLABLE_TEXT, "", "Channel path to feed from"},
    {"audio_volume", "audio volume", Coding::TEXT, "100", "Audio volume percent (0..100)"},
    {"audio_rate", "audio rate", Coding::NULLABLE_TEXT, "",
        "Audio sample rate, in Hz, to render output at. Actual sample rate is constrained by sound card capabilities."},
    {"audio_channels", "audio channels", Coding::NULLABLE_TEXT, "",
        "Audio channel count to render output at. Typical: 1 (mono), 2 (stereo), 6 (5.1 surround). Actual channel count is constrained by sound card capabilities."},
    {"oss_output", "oss output", Coding::NULLABLE_TEXT, "", "OSS output device index"},
};

// Behind the normalizer's, mostly what a running driver reports.
inline constexpr Field OSS_STATUS_FIELDS[] = {
    {"active", "active", Coding::NULLABLE_TEXT, "",
        "Status, whether or not the output to the sound card is active"},
    {"oss_buffer_size", "oss buffer size", Coding::NULLABLE_TEXT, "",
        "Status, buffer size to the sound card"},
    {"audio_last_error", "audio last error", Coding::NULLABLE_TEXT, "",
        "Last error encountered when trying to open the audio output"},
    {"autostart_item", "autostart item", Coding::NULLABLE_TEXT, "",
        "If set, the output will attempt to start the item it feeds from when you start the output, and will attempt to restart the item automatically."},
};
