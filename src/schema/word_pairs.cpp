#include "schema/word_pairs.hpp"

std::string map_string(const std::string& text, WordPairs pairs)
{
    for (const auto& [from, to] : pairs)
        if (text == from)
            return to;
    return text;
}

std::string reverse_map_string(const std::string& text, WordPairs pairs)
{
    for (const auto& [to, from] : pairs)
        if (text == from)
            return to;
    return text;
}
