// What the encoders of stream outputs have in common.
#pragma once

#include <array>

#include "schema/row.hpp"

namespace fields {

inline constexpr Row LAST_WORDS[] = {
    {"last error", TEXT, "Last error initializing the encoder", STATUS},
    {"last notes", TEXT, "Last notes related to the encoder", DEBUG_STATUS},
};

inline constexpr Row ENCODER_STATUS[] = {
    {"active", TEXT,
        "Status display, whether or not the encoder is active. Encoder is usually not active unless needed, including the act of listening to the stream.",
        STATUS},
    {"", "", LAST_WORDS},
};

// The codecs' own members are written with two underscores and read with one, so that a document fed
// back leaves their flat keys alone.
constexpr std::array<Row, 23> audio_encoder(std::string_view rate)
{
    return {{
        {"encoder", TEXT, "encoder to use (mp3, mp2, aac, ac-3, ogg-vorbis)",
            words("mp3|mp2|aac|ac-3|ogg-vorbis")},
        {"rate", TEXT, rate},
        {"channels", TEXT, "Channels to encode to (leave blank to match source)"},
        {"bitrate", TEXT,
            "Bitrate to encode to in bits/sec. 128000 = 128kbps. Leave blank for codec default"},
        {"min bitrate", TEXT, "Minimum bitrate to encode to. Triggers VBR"},
        {"max bitrate", TEXT, "Maximum bitrate to encode to. Triggers VBR"},
        {"quality", TEXT, "80", "Encoder quality setting (0...100). Trade quality for speed."},
        {"vbr quality", TEXT, "80", "VBR quality setting (0...100). Lower quality reduces the bitrate."},
        {"highpass", TEXT,
            "Filter audio with highpass filter at value in Hz. Leave blank for default, or -1 to disable."},
        {"lowpass", TEXT,
            "Filter audio with lowpass filter at value in Hz. Leave blank for default, or -1 to disable."},
        {{"mp2__channel_mode", "mp2, channel mode"}, {"mp2_channel_mode", "mp2, channel mode"},
            "Set MP2 encoder channel mode"},
        {{"mp3__channel_mode", "mp3, channel mode"}, {"mp3_channel_mode", "mp3, channel mode"},
            "Set MP3 encoder channel mode"},
        {"enable", TEXT, "1", "Enable encoder"},
        {"copyright", TEXT, "0", "Set copyright bit"},
        {"original", TEXT, "1", "Set original bit"},
        {"crc", TEXT, "0", "If supported by codec, add CRC field"},
        {"debug file", TEXT, "0", "If set, write codec output to debug file on disk."},
        {{"mp3__strict_iso", "mp3, strict iso"}, {"mp3_strict_iso", "mp3, strict iso", TEXT, "0"},
            "MP3: strict ISO conformance (default off)"},
        {{"mp3__bit_reservoir", "mp3, bit reservoir"}, {"mp3_bit_reservoir", "mp3, bit reservoir", TEXT, "1"},
            "MP3: enable bit reservoir (default on)"},
        {{"aac__object_type", "aac, object type"}, {"aac_object_type", "aac, object type", TEXT, "low"},
            "AAC: profile to encode for (main, low, ssr, ltp)", words("main|low|ssr|ltp")},
        {"name", TEXT, "Associate this encoder with a user-friendly name."},
        {{"ac3__dialog_normalization", "ac3, dialog normalization"},
            {"ac3_dialog_normalization", "ac3, dialog normalization", TEXT, "-31"},
            "AC-3 dialog normalization parameter."},
        {"", "", ENCODER_STATUS},
    }};
}

}  // namespace fields
