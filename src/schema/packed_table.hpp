// What the tools keep of a schema's table: no descriptions, and no pointers, which every start would have
// to relocate. PACKED<ROWS> is made by the compiler, and ROWS themselves then stay out of the program.
#pragma once

#include <array>
#include <cstddef>

#include "schema/row.hpp"

struct PackedRow {
    std::uint16_t path = 0, key = 0, null_text = 0;  // where they begin among the table's texts
    std::uint16_t members = 0;                       // of a group: how many rows behind it are its own
    Coding coding = Coding::TEXT;
    Direction direction = Direction::BOTH;
    bool nameless_if_absent = false;
    bool secret = false;
    Repeat repeat;
};

// Rows, and the texts that they point into.
struct Table {
    std::span<const PackedRow> rows;
    const char* texts;

    const char* text(std::uint16_t begin) const { return texts + begin; }
    Table members_of(std::size_t group) const
    {
        return {rows.subspan(group + 1, rows[group].members), texts};
    }
};

struct PackedSize {
    std::size_t rows = 0;
    std::size_t characters = 0;
};

constexpr PackedSize packed_size(std::span<const Row> rows)
{
    PackedSize size;
    for (const Row& row : rows) {
        for_each_face(row, [&](const Face& face, Direction) {
            size.rows += 1;
            size.characters += PathText(face).size + face.key.size() + face.null_text.size() + 3;
        });
        const PackedSize inner = packed_size(row.group);
        size.rows += inner.rows;
        size.characters += inner.characters;
    }
    return size;
}

template <PackedSize SIZE> class PackedTable {
public:
    explicit constexpr PackedTable(std::span<const Row> rows) { add(rows); }

    operator Table() const { return {m_rows, m_texts.data()}; }

private:
    static_assert(SIZE.characters <= UINT16_MAX && SIZE.rows <= UINT16_MAX);

    constexpr void add(std::span<const Row> rows)
    {
        for (const Row& row : rows) {
            for_each_face(row, [&](const Face& face, Direction direction) {
                m_rows[m_row_count++] = {text(PathText(face)), text(face.key), text(face.null_text), 0,
                    face.coding, direction, row.marks.nameless_if_absent, row.marks.secret, row.repeat};
            });
            const std::size_t before = m_row_count;
            add(row.group);
            m_rows[before - 1].members = static_cast<std::uint16_t>(m_row_count - before);
        }
    }

    constexpr std::uint16_t text(std::string_view text)
    {
        const std::size_t begin = m_character_count;
        for (const char c : text)
            m_texts[m_character_count++] = c;
        m_texts[m_character_count++] = '\0';
        return static_cast<std::uint16_t>(begin);
    }

    std::array<PackedRow, SIZE.rows> m_rows{};
    std::array<char, SIZE.characters> m_texts{};
    std::size_t m_row_count = 0;
    std::size_t m_character_count = 0;
};

template <const auto& ROWS> inline constexpr PackedTable<packed_size(ROWS)> PACKED(ROWS);
