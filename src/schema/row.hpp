// A schema is a table of rows, one for each member of the document, in the order in which a document is
// read. Both directions, the JSON Schema and the manifest follow from it.
//
// Tables are for the compiler and for programs of the build: what the tools keep of them is a PackedTable.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "schema/coding.hpp"

// Which directions a row is for. Where they differ, a member has a row for each.
enum class Direction : std::uint8_t { BOTH, WRITTEN, READ };

// Which elements of an array in a document are read.
enum class Elements : std::uint8_t {
    ALL,         // that are there
    UP_TO_NULL,  // in front of the first null
    DIAGONAL,    // element j of every array, if array j has an element j that is not null
};

// How often a group stands in its place: once, or that many times in an array. The "#" of its flat key stands
// for the number of an element.
struct Repeat {
    std::uint8_t count = 0;
    std::uint8_t first_number = 0;
    Elements elements = Elements::ALL;
};

// What most rows have nothing to say of.
struct Marks {
    bool status = false;          // a running driver tells it; a document may set it all the same
    std::string_view words = {};  // what the text usually is, "|" between two; no word is checked
    Direction direction = Direction::BOTH;
    bool nameless_if_absent = false;  // a document without the member yields an empty key and value
    bool nogui = false;               // front ends hide it
    std::string_view unset = {};  // what a key that isn't set counts as, where a null writes something else
};

inline constexpr Marks STATUS{.status = true};
inline constexpr Marks DEBUG_STATUS{.status = true, .nogui = true};
inline constexpr Marks WRITTEN_ALONE{.direction = Direction::WRITTEN};
inline constexpr Marks READ_ALONE{.direction = Direction::READ};

constexpr Marks words(std::string_view words)
{
    return {.words = words};
}

struct Row {
    // A member. A path in an array has the number of the element.
    constexpr Row(std::string_view member, std::string_view flat_key, Coding as, std::string_view of_null,
        std::string_view text, Marks what = {})
        : path(member), key(flat_key), null_text(of_null), description(text), marks(what), coding(as)
    {
    }

    // A group of members: rows whose paths lead on from this one, and whose keys follow this one's. An empty
    // path takes in rows that several tables have in common.
    constexpr Row(
        std::string_view member, std::string_view key_prefix, std::span<const Row> rows, Repeat often = {})
        : path(member), key(key_prefix), repeat(often), group(rows)
    {
    }

    std::string_view path;         // names of members with dots between them
    std::string_view key;          // of the settings file
    std::string_view null_text;    // what a null in a document writes; empty: see json_text.hpp
    std::string_view description;  // for people
    Marks marks;
    Coding coding = Coding::TEXT;

    Repeat repeat;
    std::span<const Row> group;
};

// The flat key with an element's number for its "#".
inline std::string numbered(std::string key, int number)
{
    const std::size_t place = key.find('#');
    return place == std::string::npos ? key : key.replace(place, 1, std::to_string(number));
}
