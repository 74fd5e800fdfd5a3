#include "schema/json_text.hpp"

#include <algorithm>
#include <limits>
#include <vector>

#include "schema/composite_text.hpp"

using json11::Json;

namespace {

int cut_to_integer(double number)
{
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(
        std::clamp(number, static_cast<double>(Limits::min()), static_cast<double>(Limits::max())));
}

std::string text_or_zero(std::string_view default_text)
{
    return std::string(default_text.empty() ? "0" : default_text);
}

}  // namespace

std::string string_text(const Json& json, std::string_view default_text)
{
    if (json.is_null())
        return std::string(default_text);
    return json.is_string() ? json.string_value() : json.dump();
}

std::string boolean_text(const Json& json, std::string_view default_text)
{
    if (json.is_null())
        return text_or_zero(default_text);
    return json.bool_value() ? "1" : "0";
}

std::string integer_text(const Json& json, std::string_view default_text)
{
    if (json.is_null())
        return text_or_zero(default_text);
    if (json.is_string())
        return json.string_value();
    return json.is_number() ? std::to_string(cut_to_integer(json.number_value())) : "0";
}

std::string number_text(const Json& json, std::string_view default_text)
{
    if (json.is_null())
        return text_or_zero(default_text);
    if (json.is_string())
        return json.string_value();
    return json.is_number() ? number_text(json.number_value()) : "0";
}

std::string array_text(const Json& json, const std::string& separator)
{
    std::vector<std::string> parts;
    for (const Json& member : json.array_items())
        parts.push_back(member.string_value());
    return join(parts, separator);
}

std::string number_text(double number)
{
    std::string text = std::to_string(number);
    text.erase(text.find_last_not_of('0') + 1);
    if (!text.empty() && text.back() == '.')
        text.pop_back();
    return text;
}
