// The flat audio normalizer keys, which the audio, Decklink and ShoutCast outputs have in common.
#pragma once

#include <array>

#include "schema/row.hpp"

namespace fields {

// The levels are what a null writes, whose text is not the same for every driver.
constexpr std::array<Row, 13> audio_normalizer(
    std::string_view minimum, std::string_view lower = "-6", std::string_view upper = "-3")
{
    return {{
        {"audio normalizer attack", INTEGER, "1", "Normalizer attack in ms (recommended: 1ms)"},
        {"audio normalizer decay", INTEGER, "100", "Normalizer decay in ms (recommended: 1000ms)"},
        {"audio normalizer minimum level", NUMBER, minimum,
            "Minimum level in dBFS (0=full volume, -6=6dBFS below full). Audio below this level is not amplified."},
        {"audio normalizer lower level", NUMBER, lower,
            "Lower level in dBFS. Audio at or above minimum level is amplified to this level."},
        {"audio normalizer upper level", NUMBER, upper,
            "Upper level in dBFS. Audio above this level is attenuated down to this level."},
        {"audio normalizer upper level 2", NULLABLE_NUMBER,
            "Upper level in dBFS, second pass. Can be used to hard limit audio levels after the first normalization pass."},
        {"audio normalizer hard limit level", NULLABLE_NUMBER,
            "Hard limit in dBFS. Audio will not exceed this level if normalization is enabled. Must be less than zero."},
        {"audio normalizer hard limit level 2", NULLABLE_NUMBER,
            "Hard limit in dBFS. Audio will not exceed this level if normalization is enabled. Must be less than zero. Applied during the second pass."},
        {"audio normalizer bass filter", INTEGER, "0",
            "Highpass filter to remove bass from audio normalizer stage, in Hz. 0 disables the filter."},
        {"audio normalizer treble filter", INTEGER, "0",
            "Lowpass filter to remove treble from audio normalizer stage, in Hz. 0 disables the filter."},
        {"audio normalizer sd-mode", BOOLEAN, "0", "Enable SD normalization mode"},
        {"audio normalizer enable", BOOLEAN, "0", "Enable audio normalization"},
        {"audio normalizer map mode", NULLABLE_TEXT,
            "Set audio normalization mapping mode. Decibel (log) mode can provide higher quality at the cost of some additional CPU load.",
            words(
                "linear|decibel|decibelm2|decibelm3|decibelm4|decibelm5|decibelm6|decibelm7|decibelm8|decibelm9")},
    }};
}

inline constexpr auto AUDIO_NORMALIZER = audio_normalizer("-24");

}  // namespace fields
