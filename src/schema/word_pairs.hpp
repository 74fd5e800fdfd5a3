// Words of a document beside the words of a settings file.
#pragma once

#include <initializer_list>
#include <string>
#include <utility>

using WordPairs = std::initializer_list<std::pair<const char*, const char*>>;

// The second word of the pair whose first is `text`, or the text itself; and the other way round.
std::string map_string(const std::string& text, WordPairs pairs);
std::string reverse_map_string(const std::string& text, WordPairs pairs);
