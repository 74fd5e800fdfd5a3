// The members of a shoutcast output's document, in their order.
#pragma once

#include "schema/fields/audio_normalizer.hpp"
#include "schema/fields/output.hpp"
#include "schema/fields/stream_encoder.hpp"

namespace fields {

inline constexpr auto SHOUT_CAST_ENCODER =
    audio_encoder("Sample rate to encode to (leave blank to match source)");

// The minimum level has a text of its own here.
inline constexpr auto SHOUT_CAST_NORMALIZER = audio_normalizer("-24.000000");

inline constexpr Row SHOUT_CAST[] = {
    {"", "", OUTPUT_START},
    // Unlike the audio outputs', the document's own text counts.
    {{"driver", "", CONSTANT, "shoutcast"}, {"driver", "driver"}, "Driver to run output with"},
    {"item", NULLABLE_TEXT, "Channel path to feed from"},
    {"enc", "enc#, ", SHOUT_CAST_ENCODER, {.count = 3}},
    {"audio rate", NULLABLE_TEXT,
        "Audio sample rate, in Hz, to render audio to. If not set, sample rate matches the channel this pulls from."},
    {"audio channels", TEXT,
        "Audio channel count. Typical: 1 (mono), 2 (stereo), 6 (5.1 surround). If not set, channel format matches the channel this pulls from."},
    {"audio volume", TEXT, "100", "Audio volume percent (0..100)"},
    {"", "", SHOUT_CAST_NORMALIZER},
    {"active", NULLABLE_BOOLEAN,
        "Status display, whether or not the system is active. Encoders have their own status.", STATUS},
    {"", "", AUTOSTART_ITEM},
};

}  // namespace fields
