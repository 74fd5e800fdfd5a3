#include "zelmctl/check/value_change.hpp"

#include <charconv>

#include "schema/codings.hpp"
#include "zelmctl/check/findings.hpp"

using json11::Json;

namespace {

// A missing part of a composite is no part as it stands, but a null may become anything.
bool is_same(const Json& given, const Json& read_back)
{
    if (given.is_null())
        return true;
    if (given.is_bool() != read_back.is_bool() || given.is_object() != read_back.is_object() ||
        given.is_array() != read_back.is_array())
        return false;
    if (given.is_array())
        return given == read_back;
    if (!given.is_object())
        return plain(given) == plain(read_back);
    for (const auto& [name, part] : read_back.object_items())
        if (given.object_items().count(name) == 0 || !is_same(given[name], part))
            return false;
    return given.object_items().size() == read_back.object_items().size();
}

// A text that is stored as it stands does; and so does a number that is read back as text.
bool stands(const Json& given, const Json& read_back, const std::string& stored)
{
    const bool is_text = read_back.is_string() || read_back.is_null();
    const bool is_scalar = given.is_string() || given.is_number();
    return is_same(given, read_back) || (is_text && is_scalar && plain(given) == stored);
}

}  // namespace

std::string plain(const Json& json)
{
    if (json.is_string())
        return json.string_value();
    if (!json.is_number())
        return json.dump();
    char text[400];
    const auto end =
        std::to_chars(text, text + sizeof text, json.number_value(), std::chars_format::fixed).ptr;
    return {text, end};
}

std::string change_of(const Json& json, const Face& face, const std::string& stored)
{
    if (json.is_null() || (stored.empty() && json == Json("")))
        return {};
    std::string as_stored = "would be stored as " + (stored.empty() ? "nothing" : in_quotes(stored));
    try {
        const Json read_back = codings::written(face.coding, stored, face.null_text).value_or(nullptr);
        if (stands(json, read_back, stored))
            return {};
        if (json.is_string() && plain(json) == stored)
            return as_stored + ", which is read back as " + in_quotes(plain(read_back));
        if (json.is_string() && plain(json).starts_with(stored))
            return "would be cut to its first " + std::to_string(stored.size()) + " bytes";
        return as_stored;
    } catch (...) {
        return as_stored + ", on which a listing as JSON ends abnormally";
    }
}

bool ends_listing(const MemberFace& member, const std::string& text)
{
    try {
        if (member.is_written())
            codings::written(member.face->coding, text, member.face->null_text);
        return false;
    } catch (...) {
        return true;
    }
}

// A composite of nothing is told from one of zeros by its text alone.
bool is_default(const std::string& stored, const MemberFace& member)
{
    const Face& face = *member.face;
    const std::string usual(member.usual());
    if (stored.empty() || stored == usual)
        return true;
    const Json read_back = codings::written(face.coding, stored, face.null_text).value_or(nullptr);
    if (usual.empty() && (read_back.is_object() || read_back.is_array()))
        return false;
    return read_back == codings::written(face.coding, usual, face.null_text).value_or(nullptr);
}
