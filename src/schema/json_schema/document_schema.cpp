#include "schema/json_schema/document_schema.hpp"

#include <algorithm>
#include <map>

#include "schema/codings.hpp"

using json11::Json;

namespace {

// A member in the making: what its rows say, or what it is made of.
struct Member {
    Json::object schema;
    std::map<std::string, Member> members;  // called by their places in an array
    Repeat repeat{};                        // of a group in an array
    const Face* written = nullptr;
    const Face* read = nullptr;
};

Member& member_at(Member& around, std::string_view path)
{
    Member* at = &around;
    for (const std::string& name : split(std::string(path), "."))
        at = &at->members[name];
    return *at;
}

bool has(const Json::array& list, const Json& element)
{
    return std::find(list.begin(), list.end(), element) != list.end();
}

// Both lists of types, in which a number is an integer too.
Json::array joined_types(Json::array types, const Json::array& others)
{
    for (const Json& type : others)
        if (!has(types, type))
            types.push_back(type);
    if (has(types, "number"))
        types.erase(std::remove(types.begin(), types.end(), Json("integer")), types.end());
    return types;
}

// The usual words first, so that a form can offer them, and then whatever else is taken.
Json::object with_words(Json::object member, std::string_view text, bool is_word = false)
{
    if (text.empty())
        return member;
    Json::array words = Json(split(std::string(text), "|")).array_items();
    const Json any = Json::object{{"type", member["type"]}};
    member.erase("type");
    if (is_word) {
        words.emplace_back();
        member["enum"] = words;
    } else {
        member["anyOf"] = Json::array{Json::object{{"enum", words}}, any};
    }
    return member;
}

// Of a composite with what its parts that are null or missing read as.
Json::object json_of(const Face& face)
{
    if (codings::parts(face.coding).empty())
        return codings::json_schema(face.coding).object_items();
    const Json usual =
        codings::written(face.coding, std::string(face.null_text), face.null_text).value_or(nullptr);
    Json::object parts;
    for (const codings::Part& part : codings::parts(face.coding)) {
        Json::object json =
            with_words(codings::json_schema(part.coding).object_items(), part.words, part.is_word);
        for (const char* of_members_alone : {"minimum", "maximum"})
            json.erase(of_members_alone);
        if (!usual[part.name].is_null())
            json["default"] = usual[part.name];
        parts[part.name] = json;
    }
    return {{"type", Json::array{"object", "null"}}, {"additionalProperties", false}, {"properties", parts}};
}

// What a key that isn't set counts as, as a value of the member. Where nothing is told, what a null writes:
// but a size of nothing is none of zeros.
std::optional<Json> member_default(const MemberFace& member, Coding written_as)
{
    const Face& face = *member.face;
    const std::string usual(member.usual());
    if (!usual.empty())
        return codings::written(written_as, usual, face.null_text);
    const Json null;
    const auto text = codings::read(face.coding, {&null, &null}, face.null_text);
    return text && codings::parts(face.coding).empty() ? codings::written(written_as, *text, face.null_text)
                                                       : std::nullopt;
}

// The flat key is what people call a member. What has none is called by its name in the document.
std::string title_of(const Face& face)
{
    const std::size_t begin = face.key.find_first_not_of(' ');
    if (begin == std::string_view::npos)
        return std::string(face.path.substr(face.path.rfind('.') + 1));
    return key_in_file(face.key.substr(begin));
}

constexpr char SECRET_NOTE[] = ". It gives access: zelmctl get leaves it out, unless --secrets.";

void add_face(Member& member, const MemberFace& of, const std::string& key)
{
    const Row& row = *of.row;
    Json::object& schema = member.schema;
    for (const auto& [name, value] : json_of(*of.face)) {
        if (name == "type" && schema.count(name) > 0 && value.is_array())
            schema[name] = joined_types(schema[name].array_items(), value.array_items());
        else
            schema[name] = value;
    }
    if (has(schema["type"].array_items(), "number") && schema.erase("minimum") > 0)
        schema.erase("maximum");  // of a face that is an integer alone
    schema["title"] = title_of(*of.face);
    if (!key.empty())
        schema["x-key"] = key_in_file(key);
    if (!row.description.empty())
        schema["description"] = std::string(row.description);
    if (row.marks.status)
        schema["readOnly"] = true;
    if (row.marks.secret) {
        schema["writeOnly"] = true;
        schema["description"] =
            std::string(row.description.substr(0, row.description.find_last_not_of('.') + 1)) + SECRET_NOTE;
    }
    schema = with_words(schema, row.marks.words);
    if (of.is_written())
        member.written = of.face;
    if (!of.is_read())
        return;
    member.read = of.face;
    const auto json = member_default(of, (member.written ? member.written : of.face)->coding);
    if (json && !row.marks.status)
        schema["default"] = *json;
}

Json schema_of(const Member& member);

Json object_schema(const Member& member)
{
    Json::object properties;
    for (const auto& [name, inner] : member.members) {
        Json::object property = schema_of(inner).object_items();
        property.emplace("title", name);
        properties[name] = property;
    }
    return Json::object{{"type", "object"}, {"properties", properties}, {"additionalProperties", false}};
}

// Any element may be null, which leaves its settings alone.
Json element_schema(const Member& element)
{
    Json::object schema = object_schema(element).object_items();
    schema["type"] = Json::array{"object", "null"};
    return schema;
}

Json list_schema(const Member& list)
{
    Json::array places;
    for (const auto& [place, element] : list.members)
        places.push_back(element_schema(element));
    return Json::object{{"type", "array"}, {"prefixItems", places}, {"items", false}};
}

Json repeated_schema(const Member& group)
{
    return Json::object{{"type", "array"}, {"items", element_schema(group)}, {"maxItems", group.repeat.count},
        {"x-first-number", group.repeat.first_number}};
}

Json schema_of(const Member& member)
{
    if (member.repeat.count > 0)
        return repeated_schema(member);
    if (!member.members.empty())
        return member.members.begin()->first == "0" ? list_schema(member) : object_schema(member);
    Json::object schema = member.schema;
    if (!member.written || !member.read)
        schema[member.written ? "readOnly" : "writeOnly"] = true;
    return schema;
}

// The keys of elements keep the "#" that stands for an element's number.
void add_rows(Member& around, std::span<const Row> rows, const std::string& key_prefix)
{
    for (const Row& row : rows) {
        if (row.group.empty()) {
            for_each_face(row, [&](const Face& face, Direction direction) {
                add_face(member_at(around, PathText(face)), {&row, &face, direction},
                    key_prefix + std::string(face.key));
            });
            continue;
        }
        Member& group = row.read.path.empty() ? around : member_at(around, row.read.path);
        if (row.repeat.count > 0)
            group.repeat = row.repeat;
        add_rows(group, row.group, key_prefix + std::string(row.read.key));
    }
}

// The word by which the item has this document. Where another one, or a null, changes nothing that is kept,
// null is as good.
void name_driver(Member& document, const Schema& schema)
{
    const auto driver = document.members.find("driver");
    if (driver == document.members.end())
        return;
    const bool is_kept = schema.kind != ItemKind::INPUT && !driver->second.read->key.empty();
    const std::string word(schema.driver);
    Json::object& member = driver->second.schema;
    member["type"] = is_kept ? Json("string") : Json(Json::array{"string", "null"});
    member["enum"] = is_kept ? Json::array{word} : Json::array{word, nullptr};
    member["default"] = word;
}

}  // namespace

Json::object document_schema(const Schema& schema)
{
    Member document;
    add_rows(document, schema.rows, {});
    name_driver(document, schema);
    return object_schema(document).object_items();
}
