// Texts that others wrote.
#pragma once

#include <string>
#include <string_view>

// For a terminal: control characters and what is no UTF-8 are escaped byte by byte.
std::string printable(std::string_view text);
