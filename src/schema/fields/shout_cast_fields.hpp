// The members of a shoutcast output's document, in their order. The driver stands in front of the item and
// the encoders behind it, and each side has these two for itself.
#pragma once

#include "schema/field.hpp"
#include "schema/fields/audio_normalizer_fields.hpp"

inline constexpr Field SHOUT_CAST_START_FIELDS[] = {
    {"autostart", "autostart", Coding::NULLABLE_TEXT, "", "Whether or not the item is automatically started"},
    {"autorestart", "autorestart", Coding::BOOLEAN, "0",
        "If set, start the item through a management tool that auto-restarts the item on failure"},
};

inline constexpr Field SHOUT_CAST_ITEM_FIELDS[] = {
    {"item", "item", Coding::NULLABLE_TEXT, "", "Channel path to feed from"},
};

inline constexpr Field SHOUT_CAST_AUDIO_FIELDS[] = {
    {"audio_rate", "audio rate", Coding::NULLABLE_TEXT, "",
        "Audio sample rate, in Hz, to render audio to. If not set, sample rate matches the channel this pulls from."},
    {"audio_channels", "audio channels", Coding::TEXT, "",
        "Audio channel count. Typical: 1 (mono), 2 (stereo), 6 (5.1 surround). If not set, channel format matches the channel this pulls from."},
    {"audio_volume", "audio volume", Coding::TEXT, "100", "Audio volume percent (0..100)"},
};

// The minimum level has a text of its own here.
inline constexpr auto SHOUT_CAST_NORMALIZER_FIELDS = audio_normalizer_fields("-24.000000");

inline constexpr Field SHOUT_CAST_STATUS_FIELDS[] = {
    {"active", "active", Coding::NULLABLE_BOOLEAN, "",
        "Status display, whether or not the system is active. Encoders have their own status."},
    {"autostart_item", "autostart item", Coding::NULLABLE_TEXT, "",
        "If set, the output will attempt to start the item it feeds from when you start the output, and will attempt to restart the item automatically."},
};

// One key of an encoder: a text, whose member the two directions may name differently.
struct ShoutCastEncoderKey {
    const char* emitted_key;
    const char* consumed_key;
    const char* flat_key;  // follows the encoder's prefix
    const char* default_text;
    const char* description;
};

// The codecs' own members are written with two underscores and read with one, so that a document fed
// back leaves their flat keys alone.
inline constexpr ShoutCastEncoderKey SHOUT_CAST_ENCODER_KEYS[] = {
    {"encoder", "encoder", ", encoder", "", "encoder to use (mp3, mp2, aac, ac-3, ogg-vorbis)"},
    {"rate", "rate", ", rate", "", "Sample rate to encode to (leave blank to match source)"},
    {"channels", "channels", ", channels", "", "Channels to encode to (leave blank to match source)"},
    {"bitrate", "bitrate", ", bitrate", "",
        "Bitrate to encode to in bits/sec. 128000 = 128kbps. Leave blank for codec default"},
    {"min_bitrate", "min_bitrate", ", min bitrate", "", "Minimum bitrate to encode to. Triggers VBR"},
    {"max_bitrate", "max_bitrate", ", max bitrate", "", "Maximum bitrate to encode to. Triggers VBR"},
    {"quality", "quality", ", quality", "80", "Encoder quality setting (0...100). Trade quality for speed."},
    {"vbr_quality", "vbr_quality", ", vbr quality", "80",
        "VBR quality setting (0...100). Lower quality reduces the bitrate."},
    {"highpass", "highpass", ", highpass", "",
        "Filter audio with highpass filter at value in Hz. Leave blank for default, or -1 to disable."},
    {"lowpass", "lowpass", ", lowpass", "",
        "Filter audio with lowpass filter at value in Hz. Leave blank for default, or -1 to disable."},
    {"mp2__channel_mode", "mp2_channel_mode", ", mp2, channel mode", "", "Set MP2 encoder channel mode"},
    {"mp3__channel_mode", "mp3_channel_mode", ", mp3, channel mode", "", "Set MP3 encoder channel mode"},
    {"enable", "enable", ", enable", "1", "Enable encoder"},
    {"copyright", "copyright", ", copyright", "0", "Set copyright bit"},
    {"original", "original", ", original", "1", "Set original bit"},
    {"crc", "crc", ", crc", "0", "If supported by codec, add CRC field"},
    {"debug_file", "debug_file", ", debug file", "0", "If set, write codec output to debug file on disk."},
    {"mp3__strict_iso", "mp3_strict_iso", ", mp3, strict iso", "0",
        "MP3: strict ISO conformance (default off)"},
    {"mp3__bit_reservoir", "mp3_bit_reservoir", ", mp3, bit reservoir", "1",
        "MP3: enable bit reservoir (default on)"},
    {"aac__object_type", "aac_object_type", ", aac, object type", "low",
        "AAC: profile to encode for (main, low, ssr, ltp)"},
    {"name", "name", ", name", "", "Associate this encoder with a user-friendly name."},
    {"ac3__dialog_normalization", "ac3_dialog_normalization", ", ac3, dialog normalization", "-31",
        "AC-3 dialog normalization parameter."},
    {"active", "active", ", active", "",
        "Status display, whether or not the encoder is active. Encoder is usually not active unless needed, including the act of listening to the stream."},
    {"last_error", "last_error", ", last error", "", "Last error initializing the encoder"},
    {"last_notes", "last_notes", ", last notes", "", "Last notes related to the encoder"},
};
