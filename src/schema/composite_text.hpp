// Texts that hold several parts, and parts that have another word in a document.
#pragma once

#include <initializer_list>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

// The parts between any of the characters of `separators`. What stands between two of them is a part, also
// when it is empty, so the empty text has one empty part.
std::vector<std::string> split(const std::string& text, const char* separators);

// The count of a text such as "90s", and its unit, which is its last character. The text is not empty.
std::pair<std::string, std::string> timed_value(const std::string& text);

// The two sides of "16:9" and of "16/9". Throws a C string where there are not two.
std::pair<std::string, std::string> ratio_value(const std::string& text);

// Words of a document beside the words of a settings file.
using WordPairs = std::initializer_list<std::pair<const char*, const char*>>;

// The kinds of a frame rate and their suffixes, which follow without a blank. The letter in front of "i bff"
// and "i tff" is an l.
inline constexpr WordPairs FRAME_KINDS = {{"progressive", "p"}, {"interlaced bottom-field-first", "li bff"},
    {"interlaced top-field-first", "li tff"}};

// Numerator, denominator and kind of a frame rate such as "25:1p". Without a separator the denominator is
// empty.
std::tuple<std::string, std::string, std::string> frame_value(const std::string& text);

// The second word of the pair whose first is `text`, or the text itself; and the other way round.
std::string map_string(const std::string& text, WordPairs pairs);
std::string reverse_map_string(const std::string& text, WordPairs pairs);
