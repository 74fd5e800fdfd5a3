// All tables, for programs of the build and for the companion. The tools have packed ones alone.
//
// A row tells a member's faces, description and marks; codings.hpp tells, by a face's coding, what a flat
// text becomes in the document, what a value in a document becomes as flat text, and which JSON the member
// is.
#pragma once

#include "schema/tables.hpp"
#include "settings/settings_file.hpp"

struct Schema {
    std::string_view driver;  // "channel" for the document of a channel, which has no driver word
    ItemKind kind;
    std::span<const Row> rows;
};

inline constexpr Schema SCHEMAS[] = {
#define DRIVER(word, kind, table, Emitter, Consumer) {#word, ItemKind::kind, fields::table},
#include "schema/drivers.def"
};

// The table of a driver word; "channel" and the empty word mean a channel's. Null for a word that has none.
inline const Schema* find_schema(std::string_view driver)
{
    for (const Schema& schema : SCHEMAS)
        if (schema.driver == (driver.empty() ? "channel" : driver))
            return &schema;
    return nullptr;
}

// The same of a driver word of such items, which may be empty or any other.
inline const Schema* find_schema(std::string_view driver, ItemKind kind)
{
    const Schema* const schema = driver.empty() ? nullptr : find_schema(driver);
    return schema && schema->kind == kind ? schema : nullptr;
}

// A key as a settings file has it: one that holds a "=" ends there.
inline std::string key_in_file(std::string_view key)
{
    return std::string(key.substr(0, key.find('=')));
}

// One face of a member, or both where they are alike.
struct MemberFace {
    const Row* row;
    const Face* face;
    Direction direction;

    bool is_written() const { return direction != Direction::READ; }
    bool is_read() const { return direction != Direction::WRITTEN; }

    // What a key that isn't set counts as.
    std::string_view usual() const { return row->marks.unset.empty() ? face->null_text : row->marks.unset; }
};

// Calls visit(path, key, member face) for every member below a table, with its whole path and flat key: those
// of the elements of an array one after the other, in the order of the table.
template <typename Visitor>
void for_each_member(std::span<const Row> rows, const Visitor& visit, const std::string& path = {},
    const std::string& key_prefix = {})
{
    for (const Row& row : rows) {
        const auto place_of = [&path](const Face& face) {
            const bool goes_on = !path.empty() && !face.path.empty();
            return path + (goes_on ? "." : "") + std::string(PathText(face));
        };
        const std::string place = place_of(row.read);
        const std::string key = key_prefix + std::string(row.read.key);
        if (row.group.empty())
            for_each_face(row, [&](const Face& face, Direction direction) {
                visit(place_of(face), key_prefix + std::string(face.key), MemberFace{&row, &face, direction});
            });
        else if (row.repeat.count == 0)
            for_each_member(row.group, visit, place, key);
        for (int i = 0; i < row.repeat.count; ++i)
            for_each_member(row.group, visit, place + "." + std::to_string(i),
                numbered(key, row.repeat.first_number + i));
    }
}
