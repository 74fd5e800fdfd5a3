// Texts that others wrote.
#pragma once

#include <string>
#include <string_view>

// For a terminal: control characters and what is no UTF-8 are escaped byte by byte.
std::string printable(std::string_view text);

// For whoever takes nothing but UTF-8: what is none becomes U+FFFD byte by byte.
std::string in_utf8(std::string_view text);
