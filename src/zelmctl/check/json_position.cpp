#include "zelmctl/check/json_position.hpp"

#include <algorithm>
#include <json11.hpp>
#include <string_view>

namespace {

std::string fault_of(const std::string& text)
{
    std::string fault;
    json11::Json::parse(text, fault);
    return fault;
}

TextPosition position_of(std::string_view text_in_front)
{
    const std::size_t feed = text_in_front.rfind('\n');
    const std::string_view line = text_in_front.substr(feed == std::string_view::npos ? 0 : feed + 1);
    const auto is_first_byte = [](char c) { return static_cast<unsigned char>(c) >> 6 != 2; };
    return {1 + static_cast<std::size_t>(std::count(text_in_front.begin(), text_in_front.end(), '\n')),
        1 + static_cast<std::size_t>(std::count_if(line.begin(), line.end(), is_first_byte))};
}

}  // namespace

// The parser goes from left to right and tells what is wrong, but not where. So the fault of the whole is
// that of every beginning that reaches its place, and of no shorter one.
TextPosition position_of_fault(std::string text)
{
    // What no JSON holds gives a text that ends too early its fault at a place, too.
    text += '\1';
    const std::string fault = fault_of(text);
    std::size_t reaches = text.size();
    // Mostly it is a text that ends too early, of which a large one is soon told so.
    std::size_t too_short = fault_of(text.substr(0, reaches - 1)) == fault ? 0 : reaches - 1;
    while (reaches - too_short > 1) {
        const std::size_t middle = too_short + (reaches - too_short) / 2;
        (fault_of(text.substr(0, middle)) == fault ? reaches : too_short) = middle;
    }
    return position_of(std::string_view(text).substr(0, reaches - 1));
}

std::optional<json11::Json> json_of(const std::string& text, Findings& findings)
{
    std::string fault;
    json11::Json json = json11::Json::parse(text, fault);
    if (fault.empty())
        return json;
    const TextPosition at = position_of_fault(text);
    findings.add({"no JSON: " + fault, {}, at.line, at.column});
    return {};
}
