// The members of an oss output's document, in their order.
#pragma once

#include "schema/fields/audio_normalizer.hpp"
#include "schema/fields/output.hpp"

namespace fields {

using enum Coding;

inline constexpr Row OSS[] = {
    {"", "", OUTPUT_START},
    {"driver", NULLABLE_CONSTANT, "oss", ""},
    {"", "", AUDIO_SOURCE},
    {"", "", AUDIO_FORMAT},
    {"oss output", NULLABLE_TEXT, "OSS output device index"},
    {"", "", AUDIO_NORMALIZER},
    {"active", NULLABLE_TEXT, "Status, whether or not the output to the sound card is active", STATUS},
    {"oss buffer size", NULLABLE_TEXT, "Status, buffer size to the sound card", STATUS},
    {"", "", AUDIO_OUTPUT_END},
};

}  // namespace fields
