// Splitting of the texts that hold several parts. What stands between two separators is a part, also
// when it is empty, so the empty text has one empty part.
#pragma once

#include <string>
#include <vector>

// The parts between any of the characters of `separators`.
std::vector<std::string> split(const std::string& text, const char* separators);

// The parts joined with the separator, none before the first.
std::string join(const std::vector<std::string>& parts, const std::string& separator);
