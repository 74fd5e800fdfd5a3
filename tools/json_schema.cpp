#include "tools/json_schema.hpp"

#include "schema/json_schema/document_schema.hpp"
#include "schema/json_schema/json_lines.hpp"

using json11::Json;

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
