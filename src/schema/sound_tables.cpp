// What the compiler refuses of a table.
#include <algorithm>
#include <vector>

#include "schema/codings.hpp"
#include "schema/tables.hpp"

namespace {

// The first thing that is wrong with a table.
struct Fault {
    char text[200] = {};

    // Mostly nothing is, and what isn't asked of its reason spares the compiler a third of its steps.
    constexpr void note_if(bool is_wrong, std::string_view where, const char* why)
    {
        if (!is_wrong || text[0] != '\0')
            return;
        char* end = text;
        for (const std::string_view part :
            std::initializer_list<std::string_view>{where.substr(0, 100), ": ", why})
            end = std::copy(part.begin(), part.end(), end);
    }
};

// The compiler's complaint shows the fault.
template <Fault FAULT> struct Sound {
    static constexpr bool IS_SOUND = FAULT.text[0] == '\0';
    static_assert(IS_SOUND, "a table is wrong");
};

// Paths are compared by their hashes: by their texts that took the compiler three times as long.
using Hash = std::uint64_t;

constexpr Hash step(Hash hash, std::string_view name)
{
    for (const char c : name)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
    return (hash ^ '.') * 0x100000001b3U;
}

// A name on the path of a row.
struct Name {
    Hash around;  // of the path up to it
    Hash path;    // and with it
    bool is_member;
    char place;  // of an element, 0 of all else
    std::string_view key;
};
using Names = std::vector<Name>;

constexpr char place_of(std::string_view name)
{
    return name.size() == 1 && name[0] >= '0' && name[0] <= '9' ? name[0] : '\0';
}

// Adds the names of a row's path, and gives its hash.
constexpr Hash add_names(Names& names, Hash around, const Face& face, bool is_member)
{
    const PathText text(face);
    const std::string_view path = text;
    for (std::size_t begin = 0; begin < path.size();) {
        const std::size_t end = std::min(path.find('.', begin), path.size());
        const std::string_view name = path.substr(begin, end - begin);
        const Hash hash = step(around, name);
        names.push_back({around, hash, is_member && end == path.size(), place_of(name), face.key});
        around = hash;
        begin = end + 1;
    }
    return around;
}

// Those of all rows that go this way. The elements of an array are called "#".
constexpr void add_rows(Names& names, Hash around, std::span<const Row> rows, Face Row::*way)
{
    for (const Row& row : rows) {
        if (way == &Row::read && row.marks.read_again)
            continue;
        const Hash path = add_names(names, around, row.*way, row.group.empty());
        add_rows(names, row.repeat.count > 0 ? step(path, "#") : path, row.group, way);
    }
}

constexpr void find_twice(Fault& fault, Names& names)
{
    std::sort(names.begin(), names.end(), [](const Name& a, const Name& b) { return a.path < b.path; });
    for (std::size_t i = 1; i < names.size(); ++i)
        fault.note_if(names[i].path == names[i - 1].path && (names[i].is_member || names[i - 1].is_member),
            names[i].key, "a path stands twice, or holds others");
}

// What holds a "0" is written as an array of all that it holds, in the order of the names.
constexpr void find_false_places(Fault& fault, Names& names)
{
    std::sort(names.begin(), names.end(), [](const Name& a, const Name& b) {
        return a.around != b.around ? a.around < b.around : a.place < b.place;
    });
    for (std::size_t i = 0; i < names.size(); ++i) {
        const bool is_first = i == 0 || names[i].around != names[i - 1].around;
        const char before = is_first ? '\0' : names[i - 1].place;
        fault.note_if(!is_first && before == '\0' && names[i].place != '\0', names[i].key,
            "a place stands among names");
        fault.note_if(names[i].place > std::max(before, '/') + 1, names[i].key, "an array lacks a place");
    }
}

constexpr void find_false_texts(Fault& fault, std::span<const Row> rows)
{
    for (const Row& row : rows) {
        for_each_face(row, [&](const Face& face, Direction) {
            fault.note_if((face.key.find('#') != face.key.npos) != (row.repeat.count > 0), face.key,
                "a # without a repeat, or a repeat without one");
            fault.note_if(row.group.empty() && !codings::takes(face.coding, face.null_text), face.key,
                "a null text that its coding can't read");
        });
        find_false_texts(fault, row.group);
    }
}

consteval Fault fault_in(std::span<const Row> rows)
{
    Fault fault;
    find_false_texts(fault, rows);
    for (Face Row::*const way : {&Row::written, &Row::read}) {
        Names names;
        add_rows(names, 0xcbf29ce484222325U, rows, way);
        find_twice(fault, names);
        find_false_places(fault, names);
    }
    return fault;
}

#define DRIVER(word, kind, table, Emitter, Consumer) static_assert(Sound<fault_in(fields::table)>::IS_SOUND);
#include "schema/drivers.def"

}  // namespace
