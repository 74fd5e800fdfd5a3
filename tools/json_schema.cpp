#include "tools/json_schema.hpp"

#include <algorithm>
#include <map>

#include "schema/codings.hpp"

using json11::Json;

namespace {

// A member in the making: what its rows say, or what it is made of.
struct Member {
    Json::object schema;
    std::map<std::string, Member> members;  // called by their places in an array
    Coding written_as = Coding::TEXT;
    bool is_written = false;
    bool is_read = false;
};

Member& member_at(Member& around, std::string_view path)
{
    Member* at = &around;
    for (const std::string& name : split(std::string(path), "."))
        at = &at->members[name];
    return *at;
}

// Both lists of types, in which a number is an integer too.
Json::array joined_types(Json::array types, const Json::array& others)
{
    for (const Json& type : others)
        if (std::find(types.begin(), types.end(), type) == types.end())
            types.push_back(type);
    if (std::find(types.begin(), types.end(), Json("number")) != types.end())
        types.erase(std::remove(types.begin(), types.end(), Json("integer")), types.end());
    return types;
}

Json parsed(const char* text)
{
    std::string error;
    return Json::parse(text, error);
}

bool is_constant(const Row& row)
{
    return row.coding == Coding::CONSTANT || row.coding == Coding::NULLABLE_CONSTANT;
}

// The two members of a switch are booleans each.
Coding alone(Coding coding)
{
    return coding == Coding::SWITCH || coding == Coding::FORCE ? Coding::BOOLEAN : coding;
}

// What a null writes, as a value of the member. Nothing where it writes nothing.
std::optional<Json> member_default(const Row& row, Coding written_as)
{
    const Json around = Json::object();
    const Json null;
    const auto text = codings::read(alone(row.coding), {&around, &null}, row.null_text);
    return text ? codings::written(alone(written_as), *text, row.null_text) : std::nullopt;
}

// What the parts of a composite that are null or missing read as.
Json with_part_defaults(const Json& parts, const Row& row)
{
    const Json usual =
        codings::written(row.coding, std::string(row.null_text), row.null_text).value_or(nullptr);
    Json::object described = parts.object_items();
    for (auto& [name, part] : described) {
        if (usual[name].is_null())
            continue;
        Json::object with_default = part.object_items();
        with_default["default"] = usual[name];
        part = with_default;
    }
    return described;
}

void add_words(Json::object& schema, const Row& row)
{
    Json::array words;
    if (!row.marks.words.empty())
        words = Json(split(std::string(row.marks.words), "|")).array_items();
    else if (is_constant(row) && !row.null_text.empty())
        words = {std::string(row.null_text)};
    if (words.empty())
        return;
    const bool is_enforced = is_constant(row) && row.marks.direction == Direction::BOTH;
    if (is_enforced)
        words.push_back(nullptr);
    schema[is_enforced ? "enum" : "examples"] = words;
}

void add_row(Member& member, const Row& row)
{
    Json::object& schema = member.schema;
    const Json type = parsed(codings::json_schema(row.coding));
    for (const auto& [name, value] : type.object_items()) {
        if (name == "type" && schema.count(name) > 0 && value.is_array())
            schema[name] = joined_types(schema[name].array_items(), value.array_items());
        else
            schema[name] = name == "properties" ? with_part_defaults(value, row) : value;
    }
    if (!row.description.empty())
        schema["description"] = std::string(row.description);
    if (row.marks.status)
        schema["readOnly"] = true;
    add_words(schema, row);
    if (row.marks.direction != Direction::READ) {
        member.is_written = true;
        member.written_as = row.coding;
    }
    if (row.marks.direction != Direction::WRITTEN) {
        member.is_read = true;
        if (const auto json = member_default(row, member.is_written ? member.written_as : row.coding))
            schema["default"] = *json;
    }
}

Json schema_of(const Member& member);

Json object_schema(const Member& member)
{
    Json::object properties;
    for (const auto& [name, inner] : member.members)
        properties[name] = schema_of(inner);
    return Json::object{{"type", "object"}, {"properties", properties}, {"additionalProperties", false}};
}

Json list_schema(const Member& list)
{
    Json::array places;
    for (const auto& [place, element] : list.members)
        places.push_back(object_schema(element));
    return Json::object{{"type", Json::array{"array", "null"}}, {"prefixItems", places}, {"items", false}};
}

// Any element may be null, which leaves its settings alone.
Json repeated_schema(const Member& element, int count)
{
    Json::object items = object_schema(element).object_items();
    items["type"] = Json::array{"object", "null"};
    return Json::object{{"type", Json::array{"array", "null"}}, {"items", items}, {"maxItems", count}};
}

Json schema_of(const Member& member)
{
    if (member.members.empty()) {
        Json::object schema = member.schema;
        if (member.is_written != member.is_read)
            schema[member.is_written ? "readOnly" : "writeOnly"] = true;
        return schema;
    }
    return member.members.begin()->first == "0" ? list_schema(member) : object_schema(member);
}

void add_rows(Member& around, std::span<const Row> rows)
{
    for (const Row& row : rows) {
        Member& member = row.path.empty() ? around : member_at(around, row.path);
        if (row.group.empty()) {
            add_row(member, row);
        } else if (row.repeat.count == 0) {
            add_rows(member, row.group);
        } else {
            Member element;
            add_rows(element, row.group);
            member.schema = repeated_schema(element, row.repeat.count).object_items();
            member.is_written = member.is_read = true;
        }
    }
}

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

std::string json_schema_of(const Schema& schema)
{
    Member document;
    add_rows(document, schema.rows);
    Json::object top = object_schema(document).object_items();
    top["$schema"] = "https://json-schema.org/draft/2020-12/schema";
    top["title"] = "Document of driver " + std::string(schema.driver);
    return indented(top, "") + "\n";
}
