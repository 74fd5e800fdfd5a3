// The members of an alsa output's document in front of and behind the audio normalizer's, in their order.
#pragma once

#include "schema/field.hpp"

inline constexpr Field ALSA_FIELDS[] = {
    {"autostart", "autostart", Coding::NULLABLE_TEXT, "", "Whether or not the item is automatically started"},
    {"autorestart", "autorestart", Coding::BOOLEAN, "0",
        "If set, start the item through a management tool that auto-restarts the item on failure"},
    {"driver", "driver", Coding::CONSTANT, "alsa", ""},
    {"item", "item", Coding::NULLABLE_TEXT, "", "Channel path to feed from"},
    {"audio_volume", "audio volume", Coding::TEXT, "100", "Audio volume percent (0..100)"},
    {"alsa_output", "alsa output", Coding::TEXT, "default", "ALSA output device ('default', 'hdmi', etc..)"},
    {"audio_rate", "audio rate", Coding::NULLABLE_TEXT, "",
        "Audio sample rate, in Hz, to render output at. Actual sample rate is constrained by sound card capabilities."},
    {"audio_channels", "audio channels", Coding::NULLABLE_TEXT, "",
        "Audio channel count to render output at. Typical: 1 (mono), 2 (stereo), 6 (5.1 surround). Actual channel count is constrained by sound card capabilities."},
    {"allow_channel_mapping", "allow channel mapping", Coding::TEXT, "0",
        "Allow ALSA to map and convert audio channels"},
    {"allow_resampling", "allow resampling", Coding::TEXT, "0", "Allow ALSA to resample audio output"},
};

// Behind the normalizer's, mostly what a running driver reports.
inline constexpr Field ALSA_STATUS_FIELDS[] = {
    {"active", "active", Coding::NULLABLE_TEXT, "",
        "Status display, whether or not the audio output is open"},
    {"active_mixer_controls", "active mixer controls", Coding::NULLABLE_TEXT, "",
        "Status display, whether or not this output is able to use the hardware mixer"},
    {"alsa_buffer_size", "alsa buffer size", Coding::NULLABLE_TEXT, "", "Buffer size of the audio output"},
    {"audio_last_error", "audio last error", Coding::NULLABLE_TEXT, "",
        "Last error encountered when trying to open the audio output"},
    {"autostart_item", "autostart item", Coding::NULLABLE_TEXT, "",
        "If set, the output will attempt to start the item it feeds from when you start the output, and will attempt to restart the item automatically."},
    {"audio_last_notes", "audio last notes", Coding::NULLABLE_TEXT, "",
        "Notes about the ALSA hardware and configuration."},
};
