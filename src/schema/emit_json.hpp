// The writing side of every schema: flat settings in, a JSON document out.
//
// A schema class derives from EmitJson and hands its table on in emitJson(). Where a flat key occurs in
// several items, the first one counts.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "schema/document.hpp"
#include "schema/packed_table.hpp"
#include "settings/infolist_item.hpp"

struct JsonEmitterItem : infolist_item {
    std::string_view key;

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

    // Takes the entries of one item, whatever their markers. Of the keys that an earlier item had, only what
    // json() shows is kept, and the list itself only if it had others.
    void add(InfoList list);

    // Coders of one flat key. An absent key reads as the empty text.
    std::string value(std::string_view key) const;
    json11::Json null_or_value(std::string_view key) const;    // empty: null
    json11::Json boolean(std::string_view key) const;          // true exactly for "1"
    json11::Json null_or_boolean(std::string_view key) const;  // empty: null
    json11::Json number(std::string_view key, double fallback = 0) const;
    json11::Json null_or_number(std::string_view key) const;  // empty: null, not a number: 0
    json11::Json integer(std::string_view key, int fallback = 0) const;
    json11::Json::array path(std::string_view key) const;  // the parts between "/"

    // The entry itself; throws the C string "Key not found".
    const JsonEmitterItem& get(std::string_view key) const;

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

    // The document's members by the rows of its table.
    Document members(const Table& table) const;

    // All flat entries as strings. Here the last item's entry counts.
    json11::Json json() const;
    std::string dump() const { return json().dump(); }

    // A copy of the tree with one member set; the key is a path of names with dots between them. Objects
    // on the way are made where there are none.
    static Document set(const Document& tree, const std::string& key, const json11::Json& value);

    // A JSON string that holds the dump() text of the JSON string `key`.
    static json11::Json getValue(const std::string& key, const infolist_item& item);

private:
    class Tree;
    struct Entries;

    static json11::Json::object object(const Table& table, const Entries& entries);
    static void write(const Table& table, const Entries& entries, Tree& tree);
    static void write_group(const Table& table, std::size_t group, const Entries& entries, Tree& tree);

    std::vector<JsonEmitterItem> m_items;        // in the order of their keys, each of them once
    std::vector<InfoList> m_lists;               // whose texts they show
    std::map<std::string, std::string> m_later;  // the last values of keys that later items had again
};
