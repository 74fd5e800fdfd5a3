// Where a text stops being JSON.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "zelmctl/check/findings.hpp"

struct TextPosition {
    std::size_t line;    // from 1 up
    std::size_t column;  // in characters, from 1 up
};

// Of a text that the parser refuses: the character at which it gives up, or the end of the text.
TextPosition position_of_fault(std::string text);

// The text as JSON. None for what is no JSON, which is then found with its position.
std::optional<json11::Json> json_of(const std::string& text, Findings& findings);
