// What the tests of documents share.
#pragma once

#include <json11.hpp>
#include <ostream>
#include <string>
#include <string_view>

// gtest shows a document by its text.
namespace json11 {
inline void PrintTo(const Json& json, std::ostream* out)
{
    *out << json.dump();
}
}  // namespace json11

inline json11::Json parsed(const std::string& text)
{
    std::string error;
    json11::Json json = json11::Json::parse(text, error);
    return error.empty() ? json : json11::Json("test document is broken: " + error);
}

inline std::string replaced(std::string text, std::string_view from, std::string_view to)
{
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}
