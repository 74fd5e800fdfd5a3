// The writing side of every schema: flat settings in, a JSON document out.
//
// A schema class derives from EmitJson and states its document in emitJson(), reading each flat key
// through one of the coders below. Where a flat key occurs several times, the first one counts.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "schema/document.hpp"
#include "schema/field.hpp"
#include "schema/infolist_item.hpp"

struct JsonEmitterItem : infolist_item {
    std::string key;

    std::string getValue(const json11::Json& json) const { return json.dump(); }

    // Walks `json` for the member whose dotted path is `target` and returns its dump() text, or "". The
    // path of a member is the prefix, ".", and its name.
    static std::string flatten_json_key(
        const std::string& target, const std::string& prefix, const json11::Json& json);
};

class EmitJson {
public:
    virtual ~EmitJson() = default;

    // The document's members.
    virtual Document emitJson() const { return {}; }

    // Appends the entries of one item, whatever their markers, behind those of earlier items.
    void add(InfoList list);

    // Coders of one flat key. An absent key reads as the empty text.
    const std::string& value(const std::string& key) const;
    json11::Json null_or_value(const std::string& key) const;    // empty: null
    json11::Json boolean(const std::string& key) const;          // true exactly for "1"
    json11::Json null_or_boolean(const std::string& key) const;  // empty: null
    json11::Json number(const std::string& key, double fallback = 0) const;
    json11::Json null_or_number(const std::string& key) const;  // empty: null, not a number: 0
    json11::Json integer(const std::string& key, int fallback = 0) const;
    json11::Json null_or_integer(const std::string& key) const;  // empty: null, not an integer: 0
    json11::Json::array path(const std::string& key) const;      // the parts between "/"

    // The entry itself; throws the C string "Key not found".
    const JsonEmitterItem& get(const std::string& key) const;

    // Coders of a composite text.
    static std::pair<std::string, std::string> timed_value(std::string text);  // empty: std::out_of_range
    static std::pair<std::string, std::string> position_value(const std::string& text);  // throws a C string
    static std::pair<std::string, std::string> ratio_value(const std::string& text);     // throws a C string

    // Numerator, denominator and kind of a frame rate. The text must hold a separator; without one the
    // denominator is empty.
    static std::tuple<std::string, std::string, std::string> frame_value(const std::string& text);

    // A text as a number: leading blanks are skipped and what follows the number is ignored. No digits,
    // or a number out of range: the fallback.
    static double read_number(const std::string& text, double fallback = 0);
    static int read_integer(const std::string& text, int fallback = 0);
    static std::optional<int> parse_integer(const std::string& text);  // nothing where that falls back

    // The members of fields that both directions code alike. `key_prefix` goes in front of each flat key.
    json11::Json::object fields(std::span<const Field> fields, const std::string& key_prefix = "") const;

    // All flat entries as strings. Here the last of several entries of one key counts.
    json11::Json json() const;
    std::string dump() const { return json().dump(); }

    // A copy of the tree with one member set; the key is a path of names with dots between them. Objects
    // on the way are made where there are none.
    static Document set(const Document& tree, const std::string& key, const json11::Json& value);

    // A JSON string that holds the dump() text of the JSON string `key`.
    static json11::Json getValue(const std::string& key, const infolist_item& item);

private:
    const JsonEmitterItem* find(const std::string& key) const;
    json11::Json field(const Field& field, const std::string& flat_key) const;

    std::vector<JsonEmitterItem> m_items;
    std::size_t m_sorted = 0;  // how many entries at the front stand in the order of their keys
};
