// The members of an internet_mpeg output's document, in their order. All are texts, the switches and the
// levels of the normalizer too.
#pragma once

#include "schema/fields/internet_mpeg_codec.hpp"
#include "schema/fields/internet_mpeg_delivery.hpp"
#include "schema/fields/internet_mpeg_mux.hpp"

namespace fields {

using enum Coding;

inline constexpr Row INTERNET_MPEG_ENCODER[] = {
    // Output j of every encoder hangs on output j of encoder j.
    {"asi", "asi#, ", NUMBERED_ASI, {.count = 3, .first_number = 1, .elements = Elements::DIAGONAL}},
    {"audio", "audio, ", ENC_AUDIO},
    {"video", "video, ", ENC_VIDEO},
    {"ps", "ps, ", ENC_PS},
    {"ts", "ts, ", ENC_TS},
    {"iptv", "iptv, ", ENC_IPTV},
    {"", "", ENC_ASI},
};

inline constexpr Row INTERNET_MPEG[] = {
    {"enc", "enc#, ", INTERNET_MPEG_ENCODER, {.count = 3}},
    {"autostart", "autostart", TEXT, "", "Whether or not the item is automatically started"},
    {"autorestart", "autorestart", TEXT, "0",
        "If set, start the item through a management tool that auto-restarts the item on failure"},
    {"driver", "driver", TEXT, "", "Driver to run output with"},
    {"item", "item", TEXT, "", "Channel or input path to feed from"},
    {"mux_delay", "mux delay", TEXT, "", "Delay between source and multiplexing in milliseconds"},
    {"schedule_parsing", "schedule parsing", TEXT, "0", "Enabling parsing of schedule from channel"},
    {"audio_volume", "audio volume", TEXT, "100", "Audio volume percent (0..100)"},
    {"audio_rate", "audio rate", TEXT, "",
        "Audio sample rate, in Hz. Audio is rendered to this rate before sending to encoder."},
    {"audio_channels", "audio channels", TEXT, "",
        "Audio channel count. Audio is rendered to this channel layout before sending to encoder."},
    {"asi_retry_delay", "asi retry delay", TEXT, "", "Delay to retry ASI output in milliseconds"},
    {"epg_event_limit", "epg event limit", TEXT, "", "Maximum events to transmit in EPG"},
    {"divide_by_zero_handling", "divide by zero handling", TEXT, "1",
        "Catch divide by zero errors, and reboot output when it happens."},
    {"audio_normalizer_attack", "audio normalizer attack", TEXT, "1",
        "Normalizer attack in ms (recommended: 1ms)"},
    {"audio_normalizer_decay", "audio normalizer decay", TEXT, "100",
        "Normalizer decay in ms (recommended: 1000ms)"},
    {"audio_normalizer_minimum_level", "audio normalizer minimum level", TEXT, "-24.000",
        "Minimum level in dBFS (0=full volume, -6=6dBFS below full). Audio below this level is not amplified."},
    {"audio_normalizer_lower_level", "audio normalizer lower level", TEXT, "-6.000",
        "Lower level in dBFS. Audio at or above minimum level is amplified to this level."},
    {"audio_normalizer_upper_level", "audio normalizer upper level", TEXT, "-3.000",
        "Upper level in dBFS. Audio above this level is attenuated down to this level."},
    {"audio_normalizer_upper_level_2", "audio normalizer upper level 2", TEXT, "",
        "Upper level in dBFS, second pass. Can be used to hard limit audio levels after the first normalization pass."},
    {"audio_normalizer_hard_limit_level", "audio normalizer hard limit level", TEXT, "",
        "Hard limit in dBFS. Audio will not exceed this level if normalization is enabled. Must be less than zero."},
    {"audio_normalizer_hard_limit_level_2", "audio normalizer hard limit level 2", TEXT, "",
        "Hard limit in dBFS. Audio will not exceed this level if normalization is enabled. Must be less than zero. Applied during the second pass."},
    {"audio_normalizer_bass_filter", "audio normalizer bass filter", TEXT, "0",
        "Highpass filter to remove bass from audio normalizer stage, in Hz. 0 disables the filter."},
    {"audio_normalizer_treble_filter", "audio normalizer treble filter", TEXT, "0",
        "Lowpass filter to remove treble from audio normalizer stage, in Hz. 0 disables the filter."},
    {"audio_normalizer_sd_mode", "audio normalizer sd-mode", TEXT, "0", "Enable SD normalization mode"},
    {"audio_normalizer_enable", "audio normalizer enable", TEXT, "0", "Enable audio normalization"},
    {"audio_normalizer_map_mode", "audio normalizer map mode", TEXT, "",
        "Set audio normalization mapping mode. Decibel (log) mode can provide higher quality at the cost of some additional CPU load."},
    {"active", "active", TEXT, "",
        "Status display, whether or not the system is active. Encoders have their own status.", STATUS},
    {"eia_608_caption_status", "eia-608 caption status", TEXT, "",
        "Caption data coming out of this output (sent to all encoders), for debugging purposes.", STATUS},
    {"autostart_item", "autostart item", TEXT, "",
        "If set, the output will attempt to start the item it feeds from when you start the output, and will attempt to restart the item automatically."},
    {"autostart_item_on_network_access", "autostart item on network access", TEXT, "",
        "If set, the output will attempt to start the item it feeds from when a client connects to this IP output over a network connection, and will disconnect from the item when all network connections are gone."},
};

}  // namespace fields
