#include "schema/json_text.hpp"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <limits>

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

// Up to six decimals, without trailing zeros.
std::string plain_number(double number)
{
    std::string text = std::to_string(number);
    text.erase(text.find_last_not_of('0') + 1);
    if (!text.empty() && text.back() == '.')
        text.pop_back();
    return text;
}

template <typename Written>
std::string text_of_number(const Json& json, std::string_view default_text, const Written& written)
{
    if (json.is_null())
        return text_or_zero(default_text);
    if (json.is_string())
        return json.string_value();
    return json.is_number() ? written(json.number_value()) : "0";
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
    const auto written = [](double number) { return std::to_string(cut_to_integer(number)); };
    return text_of_number(json, default_text, written);
}

std::string number_text(const Json& json, std::string_view default_text)
{
    return text_of_number(json, default_text, plain_number);
}

std::string array_text(const Json& json, const std::string& separator)
{
    std::string text;
    for (const Json& member : json.array_items())
        text += separator + member.string_value();
    return text.empty() ? text : text.substr(separator.size());
}

double number_in(const std::string& text)
{
    char* end = nullptr;
    errno = 0;
    const double number = std::strtod(text.c_str(), &end);
    return end == text.c_str() || errno == ERANGE ? 0 : number;
}

std::optional<int> parse_integer(const std::string& text)
{
    char* end = nullptr;
    errno = 0;
    const long number = std::strtol(text.c_str(), &end, 10);
    const bool in_range = errno != ERANGE && number >= INT_MIN && number <= INT_MAX;
    if (end == text.c_str() || !in_range)
        return std::nullopt;
    return static_cast<int>(number);
}

int integer_in(const std::string& text)
{
    return parse_integer(text).value_or(0);
}
