#include "schema/composite_text.hpp"

#include <boost/algorithm/string/classification.hpp>
#include <boost/algorithm/string/split.hpp>

namespace {

bool cut_suffix(std::string& text, std::string_view suffix)
{
    const bool has = text.ends_with(suffix);
    if (has)
        text.erase(text.size() - suffix.size());
    return has;
}

}  // namespace

std::vector<std::string> split(const std::string& text, const char* separators)
{
    std::vector<std::string> parts;
    boost::algorithm::split(parts, text, boost::algorithm::is_any_of(separators));
    return parts;
}

std::pair<std::string, std::string> timed_value(const std::string& text)
{
    return {text.substr(0, text.size() - 1), text.substr(text.size() - 1)};
}

std::pair<std::string, std::string> ratio_value(const std::string& text)
{
    std::vector<std::string> parts = split(text, ":/");
    if (parts.size() != 2)
        throw "Bad ratio format";
    return {std::move(parts[0]), std::move(parts[1])};
}

std::tuple<std::string, std::string, std::string> frame_value(const std::string& text)
{
    std::vector<std::string> parts = split(text, ":/");
    parts.resize(2);
    std::string kind = "interlaced bottom-field-first";
    for (const auto& [word, suffix] : FRAME_KINDS)
        if (cut_suffix(parts[1], suffix))
            kind = word;
    return {std::move(parts[0]), std::move(parts[1]), std::move(kind)};
}

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
