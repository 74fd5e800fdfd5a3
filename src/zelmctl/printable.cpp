#include "zelmctl/printable.hpp"

#include <algorithm>
#include <cstdio>

namespace {

struct Character {
    char32_t code;
    std::size_t size;  // in bytes, 0 for what is no UTF-8
};

// The character that the text begins with.
Character first_character(std::string_view text)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    if (byte(0) < 0x80)
        return {byte(0), 1};
    constexpr char32_t SMALLEST[] = {0x80, 0x800, 0x10000, 0x110000};  // by the size, from 2 up
    const std::size_t size = byte(0) < 0xe0 ? 2 : byte(0) < 0xf0 ? 3 : 4;
    if (byte(0) < 0xc0 || byte(0) > 0xf4 || size > text.size())
        return {};
    char32_t code = byte(0) & (0x7fU >> size);
    for (std::size_t i = 1; i < size; ++i) {
        if (byte(i) >> 6 != 2)
            return {};
        code = code << 6 | (byte(i) & 0x3fU);
    }
    const bool is_half = code >= 0xd800 && code < 0xe000;
    const bool is_one = code >= SMALLEST[size - 2] && code < SMALLEST[3] && !is_half;
    return {code, is_one ? size : 0};
}

bool is_control(char32_t code)
{
    return code < ' ' || (code >= 0x7f && code < 0xa0);
}

}  // namespace

std::string printable(std::string_view text)
{
    std::string safe;
    while (!text.empty()) {
        const Character character = first_character(text);
        if (character.size > 0 && !is_control(character.code)) {
            safe += text.substr(0, character.size);
            text.remove_prefix(character.size);
            continue;
        }
        char escaped[8];
        std::snprintf(escaped, sizeof escaped, "\\x%02x", static_cast<unsigned char>(text.front()));
        safe += text.front() == '\n' ? "\\n" : escaped;
        text.remove_prefix(1);
    }
    return safe;
}

std::string in_utf8(std::string_view text)
{
    std::string safe;
    while (!text.empty()) {
        const std::size_t size = first_character(text).size;
        safe += size > 0 ? text.substr(0, size) : "\xef\xbf\xbd";
        text.remove_prefix(std::max<std::size_t>(size, 1));
    }
    return safe;
}
