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

// A member as it goes one way: written into a document from the settings, or read into them out of one.
struct Face {
    std::string_view path;  // names of members with dots between them, in an array numbers; or BY_KEY
    std::string_view key;   // of the settings file
    Coding coding = Coding::TEXT;
    std::string_view null_text = {};  // coding.hpp tells what it is to which coding

    constexpr bool operator==(const Face&) const = default;
    constexpr explicit operator bool() const { return !path.empty(); }
};

inline constexpr Face NEVER{};  // of a member that does not go that way

// The path of a member that is called by its key, with a "_" for each byte that is no letter or digit.
inline constexpr std::string_view BY_KEY = "=";

// The path of a face, written out.
struct PathText {
    char text[80] = {};
    std::size_t size = 0;

    constexpr explicit PathText(const Face& face)
    {
        const bool by_key = face.path == BY_KEY;
        for (const char c : by_key ? face.key : face.path)
            text[size++] = by_key && !is_letter_or_digit(c) ? '_' : c;
    }
    constexpr operator std::string_view() const { return {text, size}; }

private:
    static constexpr bool is_letter_or_digit(char c)
    {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    }
};

// Which elements of an array in a document are read.
enum class Elements : std::uint8_t {
    ALL,         // that are there
    UP_TO_NULL,  // in front of the first null
    DIAGONAL,    // of arrays in the elements of an array: element j of each, if array j has one that is not
                 // null
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
    // What the text usually is, "|" between two. No word is checked.
    std::string_view words = {};
    // What a key that isn't set counts as, where a null writes something else.
    std::string_view unset = {};

    bool status = false;              // a running driver tells it; a document may set it all the same
    bool nameless_if_absent = false;  // where nothing is read, that is an empty key and value
    bool read_again = false;          // another row reads the same member too
    bool nogui = false;               // front ends hide it
    bool secret = false;              // gives access, and is told to nobody who hasn't asked for secrets
};

inline constexpr Marks STATUS{.status = true};
inline constexpr Marks DEBUG_STATUS{.status = true, .nogui = true};
inline constexpr Marks SECRET{.secret = true};

constexpr Marks words(std::string_view words)
{
    return {.words = words};
}

struct Row {
    // A member that goes both ways alike and is called by its key. Without a null text it is the empty one.
    constexpr Row(std::string_view key, Coding coding, std::string_view text, Marks what = {})
        : Row(BY_KEY, key, coding, {}, text, what)
    {
    }
    constexpr Row(std::string_view key, Coding coding, std::string_view null_text, std::string_view text,
        Marks what = {})
        : Row(BY_KEY, key, coding, null_text, text, what)
    {
    }

    // One that has a path of its own.
    constexpr Row(std::string_view path, std::string_view key, Coding coding, std::string_view null_text,
        std::string_view text, Marks what = {})
        : Row(Face{path, key, coding, null_text}, Face{path, key, coding, null_text}, text, what)
    {
    }

    // A member under different names or codings, or one that goes one way alone.
    constexpr Row(const Face& out, const Face& in, std::string_view text, Marks what = {})
        : written(out), read(in), description(text), marks(what)
    {
    }

    // A group of members: rows whose paths lead on from this one, and whose keys follow this one's. An empty
    // path takes in rows that several tables have in common.
    constexpr Row(
        std::string_view path, std::string_view key_prefix, std::span<const Row> rows, Repeat often = {})
        : written{path, key_prefix}, read(written), repeat(often), group(rows)
    {
    }

    Face written, read;                 // of a group, too
    std::string_view description = {};  // for people
    Marks marks = {};

    Repeat repeat = {};
    std::span<const Row> group = {};
};

enum class Direction : std::uint8_t { BOTH, WRITTEN, READ };

// Calls visit(face, direction) for the one face of a row that goes both ways alike, or else for each.
template <typename Visitor> constexpr void for_each_face(const Row& row, const Visitor& visit)
{
    if (row.written == row.read)
        return visit(row.read, Direction::BOTH);
    if (row.written)
        visit(row.written, Direction::WRITTEN);
    if (row.read)
        visit(row.read, Direction::READ);
}

// The flat key with an element's number for its "#".
inline std::string numbered(std::string key, int number)
{
    const std::size_t place = key.find('#');
    return place == std::string::npos ? key : key.replace(place, 1, std::to_string(number));
}

// Of the tables of all documents, which call the codings by their names.
namespace fields {
using enum Coding;
}
