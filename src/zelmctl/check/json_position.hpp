// Where a text stops being JSON.
#pragma once

#include <cstddef>
#include <string>

struct TextPosition {
    std::size_t line;    // from 1 up
    std::size_t column;  // in characters, from 1 up
};

// Of a text that the parser refuses: the character at which it gives up, or the end of the text.
TextPosition position_of_fault(std::string text);
