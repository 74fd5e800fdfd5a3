#include "tools/json_schema.hpp"

using json11::Json;

namespace {

constexpr struct {
    const char* member;
    ItemKind kind;
} KINDS[] = {
    {"channels", ItemKind::CHANNEL},
    {"inputs", ItemKind::INPUT},
    {"outputs", ItemKind::OUTPUT},
    {"routers", ItemKind::ROUTER},
};

// What an item of any driver has.
constexpr char ITEM[] = R"({
    "type": "object",
    "required": ["driver"],
    "additionalProperties": false,
    "properties": {
        "driver": {"type": "string", "description": "The driver word, \"channel\" of a channel"},
        "settings": {
            "type": "object",
            "additionalProperties": {"type": ["string", "array"], "items": {"type": "string"}},
            "description": "What the settings file holds. A value of several lines is an array of them"},
        "running": {"type": "boolean"},
        "pid": {"type": "integer", "minimum": 1},
        "uptime": {"type": "number", "minimum": 0, "description": "How many seconds it has been running"},
        "answers": {"type": "boolean", "description": "Whether its driver has answered in time"},
        "document": {"description": "Null of a driver without one. It lacks what gives access, unless --secrets"},
        "error": {"type": "string", "description": "What stands in the place of a member that can't be told"}},
    "if": {"properties": {"running": {"const": true}}, "required": ["running"]},
    "then": {"required": ["pid", "answers"]},
    "else": {"properties": {"pid": false, "uptime": false, "answers": false}},
    "anyOf": [{"required": ["running", "document"]}, {"required": ["error"]}]})";

// "then" holds for the items of the driver.
Json of_driver(const Json& word, const Json& document)
{
    const Json is_driver = Json::object{{"properties", Json::object{{"driver", word}}}};
    return Json::object{
        {"if", is_driver}, {"then", Json::object{{"properties", Json::object{{"document", document}}}}}};
}

Json items_of(ItemKind kind)
{
    std::string error;
    Json::object item = Json::parse(ITEM, error).object_items();
    Json::array words;
    Json::array documents;
    for (const Schema& schema : SCHEMAS)
        if (schema.kind == kind) {
            const std::string word(schema.driver);
            words.push_back(word);
            documents.push_back(
                of_driver(Json::object{{"const", word}}, Json::object{{"$ref", word + ".schema.json"}}));
        }
    const Json others = Json::object{{"not", Json::object{{"enum", words}}}};
    documents.push_back(of_driver(others, Json::object{{"type", "null"}}));
    item["allOf"] = documents;
    return Json::object{{"type", "object"}, {"additionalProperties", item}};
}

}  // namespace

std::string json_schema_of_get()
{
    Json::array kinds;
    Json::object properties;
    for (const auto& row : KINDS) {
        kinds.push_back(row.member);
        properties[row.member] = items_of(row.kind);
    }
    Json::object top{
        {"type", "object"}, {"properties", properties}, {"required", kinds}, {"additionalProperties", false}};
    return schema_text(std::move(top), "zelmctl-get", "What zelmctl get prints");
}
