// The members of a shoutcast output's document, in their order.
#pragma once

#include "schema/fields/audio_normalizer.hpp"
#include "schema/fields/output.hpp"
#include "schema/fields/stream_encoder.hpp"

namespace fields {

using enum Coding;

// The codecs' own members are written with two underscores and read with one, so that a document fed
// back leaves their flat keys alone.
inline constexpr Row SHOUT_CAST_ENCODER[] = {
    {"encoder", "encoder", TEXT, "", "encoder to use (mp3, mp2, aac, ac-3, ogg-vorbis)",
        words("mp3|mp2|aac|ac-3|ogg-vorbis")},
    {"rate", "rate", TEXT, "", "Sample rate to encode to (leave blank to match source)"},
    {"", "", CODEC_LEVELS},
    {"mp2__channel_mode", "mp2, channel mode", TEXT, "", "Set MP2 encoder channel mode", WRITTEN_ALONE},
    {"mp2_channel_mode", "mp2, channel mode", TEXT, "", "Set MP2 encoder channel mode", READ_ALONE},
    {"mp3__channel_mode", "mp3, channel mode", TEXT, "", "Set MP3 encoder channel mode", WRITTEN_ALONE},
    {"mp3_channel_mode", "mp3, channel mode", TEXT, "", "Set MP3 encoder channel mode", READ_ALONE},
    {"", "", CODEC_SWITCHES},
    {"mp3__strict_iso", "mp3, strict iso", TEXT, "", "MP3: strict ISO conformance (default off)",
        WRITTEN_ALONE},
    {"mp3_strict_iso", "mp3, strict iso", TEXT, "0", "MP3: strict ISO conformance (default off)", READ_ALONE},
    {"mp3__bit_reservoir", "mp3, bit reservoir", TEXT, "", "MP3: enable bit reservoir (default on)",
        WRITTEN_ALONE},
    {"mp3_bit_reservoir", "mp3, bit reservoir", TEXT, "1", "MP3: enable bit reservoir (default on)",
        READ_ALONE},
    {"aac__object_type", "aac, object type", TEXT, "", "AAC: profile to encode for (main, low, ssr, ltp)",
        WRITTEN_ALONE},
    {"aac_object_type", "aac, object type", TEXT, "low", "AAC: profile to encode for (main, low, ssr, ltp)",
        READ_ALONE},
    {"name", "name", TEXT, "", "Associate this encoder with a user-friendly name."},
    {"ac3__dialog_normalization", "ac3, dialog normalization", TEXT, "",
        "AC-3 dialog normalization parameter.", WRITTEN_ALONE},
    {"ac3_dialog_normalization", "ac3, dialog normalization", TEXT, "-31",
        "AC-3 dialog normalization parameter.", READ_ALONE},
    {"", "", ENCODER_STATUS},
};

// The minimum level has a text of its own here.
inline constexpr auto SHOUT_CAST_NORMALIZER = audio_normalizer("-24.000000");

inline constexpr Row SHOUT_CAST[] = {
    {"", "", OUTPUT_START},
    // Unlike the audio outputs', the document's own text counts.
    {"driver", "", CONSTANT, "shoutcast", "Driver to run output with", WRITTEN_ALONE},
    {"driver", "driver", TEXT, "", "Driver to run output with", READ_ALONE},
    {"item", "item", NULLABLE_TEXT, "", "Channel path to feed from"},
    {"enc", "enc#, ", SHOUT_CAST_ENCODER, {.count = 3}},
    {"audio_rate", "audio rate", NULLABLE_TEXT, "",
        "Audio sample rate, in Hz, to render audio to. If not set, sample rate matches the channel this pulls from."},
    {"audio_channels", "audio channels", TEXT, "",
        "Audio channel count. Typical: 1 (mono), 2 (stereo), 6 (5.1 surround). If not set, channel format matches the channel this pulls from."},
    {"audio_volume", "audio volume", TEXT, "100", "Audio volume percent (0..100)"},
    {"", "", SHOUT_CAST_NORMALIZER},
    {"active", "active", NULLABLE_BOOLEAN, "",
        "Status display, whether or not the system is active. Encoders have their own status.", STATUS},
    {"", "", AUTOSTART_ITEM},
};

}  // namespace fields
