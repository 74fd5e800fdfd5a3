// What the encoders of stream outputs have in common.
#pragma once

#include "schema/row.hpp"

namespace fields {

using enum Coding;

inline constexpr Row CODEC_LEVELS[] = {
    {"channels", "channels", TEXT, "", "Channels to encode to (leave blank to match source)"},
    {"bitrate", "bitrate", TEXT, "",
        "Bitrate to encode to in bits/sec. 128000 = 128kbps. Leave blank for codec default"},
    {"min_bitrate", "min bitrate", TEXT, "", "Minimum bitrate to encode to. Triggers VBR"},
    {"max_bitrate", "max bitrate", TEXT, "", "Maximum bitrate to encode to. Triggers VBR"},
    {"quality", "quality", TEXT, "80", "Encoder quality setting (0...100). Trade quality for speed."},
    {"vbr_quality", "vbr quality", TEXT, "80",
        "VBR quality setting (0...100). Lower quality reduces the bitrate."},
    {"highpass", "highpass", TEXT, "",
        "Filter audio with highpass filter at value in Hz. Leave blank for default, or -1 to disable."},
    {"lowpass", "lowpass", TEXT, "",
        "Filter audio with lowpass filter at value in Hz. Leave blank for default, or -1 to disable."},
};

inline constexpr Row CODEC_SWITCHES[] = {
    {"enable", "enable", TEXT, "1", "Enable encoder"},
    {"copyright", "copyright", TEXT, "0", "Set copyright bit"},
    {"original", "original", TEXT, "1", "Set original bit"},
    {"crc", "crc", TEXT, "0", "If supported by codec, add CRC field"},
    {"debug_file", "debug file", TEXT, "0", "If set, write codec output to debug file on disk."},
};

inline constexpr Row LAST_WORDS[] = {
    {"last_error", "last error", TEXT, "", "Last error initializing the encoder", STATUS},
    {"last_notes", "last notes", TEXT, "", "Last notes related to the encoder", DEBUG_STATUS},
};

inline constexpr Row ENCODER_STATUS[] = {
    {"active", "active", TEXT, "",
        "Status display, whether or not the encoder is active. Encoder is usually not active unless needed, including the act of listening to the stream.",
        STATUS},
    {"", "", LAST_WORDS},
};

}  // namespace fields
