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

// What any item of an answer has.
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

// An object that has such a member.
Json has(const char* member, const Json& such)
{
    return Json::object{{"required", Json::array{member}}, {"properties", Json::object{{member, such}}}};
}

Json if_then(const Json& condition, const Json& properties)
{
    return Json::object{{"if", condition}, {"then", Json::object{{"properties", properties}}}};
}

Json same_as(std::string_view word)
{
    return Json::object{{"const", std::string(word)}};
}

Json document_of(const Schema& schema)
{
    return Json::object{{"document", Json::object{{"$ref", std::string(schema.driver) + ".schema.json"}}}};
}

Json other_words(ItemKind kind)
{
    Json::array words;
    for (const Schema& schema : SCHEMAS)
        if (schema.kind == kind)
            words.push_back(std::string(schema.driver));
    return Json::object{{"not", Json::object{{"enum", words}}}};
}

Json parsed(const std::string& text)
{
    std::string error;
    return Json::parse(text, error);
}

Json told_items(ItemKind kind)
{
    Json::object item = parsed(ITEM).object_items();
    Json::array documents;
    for (const Schema& schema : SCHEMAS)
        if (schema.kind == kind)
            documents.push_back(if_then(has("driver", same_as(schema.driver)), document_of(schema)));
    const Json none = Json::object{{"type", "null"}};
    documents.push_back(if_then(has("driver", other_words(kind)), Json::object{{"document", none}}));
    item["allOf"] = documents;
    return Json::object{{"type", "object"}, {"additionalProperties", item}};
}

// What any item of a file may have. A line has at most 1022 bytes, "=" and a key among them. Before a last
// line feed a pattern's "$" would match, too.
constexpr char WANTED_ITEM[] = R"JSON({
    "type": "object",
    "additionalProperties": false,
    "properties": {
        "driver": {"type": "string", "description": "The driver word, for the document too"},
        "document": {"description": "As set takes it. It may not set what stands in the settings"},
        "settings": {
            "type": "object",
            "propertyNames": {"pattern": "^[^-+&#=\\n\\r][^=\\n\\r]*(?![\\s\\S])"},
            "additionalProperties": {
                "type": ["string", "array", "null"],
                "pattern": "^[^\\n\\r]*(?![\\s\\S])", "maxLength": 1020,
                "items": {"type": "string", "pattern": "^[^\\n\\r]*(?![\\s\\S])", "maxLength": 1020},
                "minItems": 1,
                "if": {"type": "array", "minItems": 2}, "then": {"prefixItems": [{"minLength": 1}]}},
            "description": "Flat keys. An array is a value of several lines, and null removes a key"},
        "state": {"enum": ["running", "stopped"], "description": "Without it nothing is started or stopped"},
        "supervised": {"type": "boolean", "description": "Whether the respawn manager looks after it"}}})JSON";

// Names of no item.
constexpr char NO_NAME[] =
    R"JSON({"anyOf": [{"enum": ["", "all", "autostart"]}, {"pattern": "^\\.|/|\\u0000|~(?![\\s\\S])"}]})JSON";

// An item that tells its driver by such a word. The settings of an input may have another one than its type.
Json::array ways_to_tell(ItemKind kind, const Json& such)
{
    Json::array ways{has("driver", such), has("document", has("driver", such))};
    if (kind != ItemKind::INPUT)
        ways.push_back(has("settings", has("driver", such)));
    return ways;
}

// Which document an item of the kind may have, by the word of its driver or the type that means it.
Json::array documents_by_driver(ItemKind kind)
{
    Json::array conditions;
    Json::array all_ways = ways_to_tell(kind, true);
    for (const Schema& schema : SCHEMAS) {
        if (schema.kind != kind)
            continue;
        Json::array ways = ways_to_tell(kind, same_as(schema.driver));
        for (const InputType& type : INPUT_TYPES)
            if (type.driver == schema.driver) {
                const Json is_type = has("type", same_as(type.marker));
                ways.push_back(is_type);
                conditions.push_back(if_then(is_type, Json::object{{"driver", same_as(type.driver)}}));
            }
        conditions.push_back(if_then(Json::object{{"anyOf", ways}}, document_of(schema)));
    }
    const Json is_other = Json::object{{"anyOf", ways_to_tell(kind, other_words(kind))}};
    conditions.push_back(if_then(is_other, Json::object{{"document", false}}));
    all_ways.push_back(Json::object{{"required", Json::array{"type"}}});
    conditions.push_back(
        Json::object{{"if", has("document", true)}, {"then", Json::object{{"anyOf", all_ways}}}});
    return conditions;
}

Json wanted_items(ItemKind kind)
{
    Json::object item = parsed(WANTED_ITEM).object_items();
    Json::object properties = item["properties"].object_items();
    Json::object names{{"not", parsed(NO_NAME)}, {"maxLength", 255}};
    if (kind == ItemKind::CHANNEL) {
        names = {{"pattern", "^channel[1-9][0-9]{0,5}(?![\\s\\S])"}};
        properties["driver"] = same_as("channel");
        properties["document"] = document_of(*find_schema("channel"))["document"];
    } else {
        item["allOf"] = documents_by_driver(kind);
    }
    Json::array markers;
    for (const InputType& type : INPUT_TYPES)
        markers.push_back(type.marker);
    if (kind == ItemKind::INPUT)
        properties["type"] = Json::object{{"enum", markers}};
    item["properties"] = properties;
    return Json::object{{"type", "object"}, {"propertyNames", names}, {"additionalProperties", item}};
}

// What has a member for each kind.
Json::object kinds_of(Json (*items)(ItemKind))
{
    Json::object properties;
    for (const auto& row : KINDS)
        properties[row.member] = items(row.kind);
    return {{"type", "object"}, {"properties", properties}, {"additionalProperties", false}};
}

}  // namespace

std::string json_schema_of_get()
{
    Json::object top = kinds_of(told_items);
    Json::array kinds;
    for (const auto& row : KINDS)
        kinds.push_back(row.member);
    top["required"] = kinds;
    return schema_text(std::move(top), "zelmctl-get", "What zelmctl get prints");
}

std::string json_schema_of_appliance()
{
    return schema_text(kinds_of(wanted_items), "appliance", "The file that zelmctl apply takes");
}
