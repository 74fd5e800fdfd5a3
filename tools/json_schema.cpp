#include "tools/json_schema.hpp"

#include <algorithm>

#include "schema/json_schema/document_schema.hpp"

using json11::Json;

namespace {

bool fits_a_line(const Json& json)
{
    const auto is_scalar = [](const Json& element) { return !element.is_array() && !element.is_object(); };
    return json.object_items().empty() &&
           std::all_of(json.array_items().begin(), json.array_items().end(), is_scalar);
}

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

}  // namespace

std::string schema_text(Json::object schema, const std::string& name, const std::string& title)
{
    schema["$schema"] = "https://json-schema.org/draft/2020-12/schema";
    schema["$id"] = "https://zelmctl.example/schemas/" + name + ".schema.json";
    schema["title"] = title;
    return indented(schema, "") + "\n";
}

std::string json_schema_of(const Schema& schema)
{
    const std::string driver(schema.driver);
    return schema_text(document_schema(schema), driver, "Document of driver " + driver);
}
