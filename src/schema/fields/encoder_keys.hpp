// How the flat keys of a stream output name its encoders, and an encoder its numbered ASI outputs. In the
// document both are arrays, "enc" and "asi".
#pragma once

#include <cstddef>
#include <string>

inline constexpr std::size_t ENCODERS = 3;
inline constexpr std::size_t NUMBERED_ASI_OUTPUTS = 3;

// What each flat key of an encoder begins with. `base` is its number, counted from "0".
inline std::string encoder_key_prefix(const std::string& base)
{
    return "enc" + base;
}

// What each flat key of a numbered ASI output begins with. `number` is counted from "1".
inline std::string asi_key_prefix(const std::string& base, const std::string& number)
{
    return encoder_key_prefix(base) + ", asi" + number;
}
