// The members of an internet_mpeg output's document, in their order. All are texts, the switches and the
// levels of the normalizer too, and of none of the normalizer's are usual words known.
#pragma once

#include "schema/fields/audio_normalizer.hpp"
#include "schema/fields/internet_mpeg_codec.hpp"
#include "schema/fields/internet_mpeg_delivery.hpp"
#include "schema/fields/internet_mpeg_mux.hpp"

namespace fields {

inline constexpr auto INTERNET_MPEG_NORMALIZER = [] {
    auto rows = audio_normalizer("-24.000", "-6.000", "-3.000");
    for (Row& row : rows) {
        row.written.coding = row.read.coding = TEXT;
        row.marks.words = {};
    }
    return rows;
}();

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
    {"autostart", TEXT, "Whether or not the item is automatically started"},
    {"autorestart", TEXT, "0",
        "If set, start the item through a management tool that auto-restarts the item on failure"},
    {"driver", TEXT, "Driver to run output with"},
    {"item", TEXT, "Channel or input path to feed from"},
    {"mux delay", TEXT, "Delay between source and multiplexing in milliseconds"},
    {"schedule parsing", TEXT, "0", "Enabling parsing of schedule from channel"},
    {"audio volume", TEXT, "100", "Audio volume percent (0..100)"},
    {"audio rate", TEXT,
        "Audio sample rate, in Hz. Audio is rendered to this rate before sending to encoder."},
    {"audio channels", TEXT,
        "Audio channel count. Audio is rendered to this channel layout before sending to encoder."},
    {"asi retry delay", TEXT, "Delay to retry ASI output in milliseconds"},
    {"epg event limit", TEXT, "Maximum events to transmit in EPG"},
    {"divide by zero handling", TEXT, "1", "Catch divide by zero errors, and reboot output when it happens."},
    {"", "", INTERNET_MPEG_NORMALIZER},
    {"active", TEXT, "Status display, whether or not the system is active. Encoders have their own status.",
        STATUS},
    {"eia-608 caption status", TEXT,
        "Caption data coming out of this output (sent to all encoders), for debugging purposes.", STATUS},
    {"autostart item", TEXT,
        "If set, the output will attempt to start the item it feeds from when you start the output, and will attempt to restart the item automatically."},
    {"autostart item on network access", TEXT,
        "If set, the output will attempt to start the item it feeds from when a client connects to this IP output over a network connection, and will disconnect from the item when all network connections are gone."},
};

}  // namespace fields
