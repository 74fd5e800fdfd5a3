#include "schema/json_schema/json_lines.hpp"

#include <algorithm>

using json11::Json;

namespace {

bool fits_a_line(const Json& json)
{
    const auto is_scalar = [](const Json& element) { return !element.is_array() && !element.is_object(); };
    return json.object_items().empty() &&
           std::all_of(json.array_items().begin(), json.array_items().end(), is_scalar);
}

}  // namespace

std::string indented(const Json& json, const std::string& margin)
{
    if (fits_a_line(json))
        return json.dump();
    const std::string inner = margin + "  ";
    std::string text;
    for (const auto& [name, member] : json.object_items())
        text += (text.empty() ? "{\n" : ",\n") + inner + Json(name).dump() + ": " + indented(member, inner);
    for (const Json& element : json.array_items())
        text += (text.empty() ? "[\n" : ",\n") + inner + indented(element, inner);
    return text + "\n" + margin + (json.is_object() ? "}" : "]");
}
