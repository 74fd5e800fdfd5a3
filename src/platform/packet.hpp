// The layout of a packet, for both directions of an item's socket. zelm-packets(5) tells it to whoever
// writes a driver. Everything here works on plain bytes and never reads outside of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace packet {

constexpr std::uint8_t FLAG_REQUEST = 0x01;  // set on everything that a client asks
constexpr std::uint8_t FLAG_EVENT = 0x02;    // set on what a server sends unasked

constexpr unsigned char MAGIC_BYTES[] = {'T', 'V', 'P', '4'};

// Where the fields of the header stand, and what an entry of the table takes.
constexpr std::size_t LENGTH_AT = 0x04;
constexpr std::size_t SEQUENCE_AT = 0x08;
constexpr std::size_t FLAGS_AT = 0x10;
constexpr std::size_t COMMAND_AT = 0x11;
constexpr std::size_t COUNT_AT = 0x61;
constexpr std::size_t TABLE_AT = 0x63;
constexpr std::size_t HEADER_SIZE = 0x67;
constexpr std::size_t ENTRY_SIZE = 16;

// Numbers as they go over the wire, which is little-endian whatever the machine is.
template <typename Number> void store(unsigned char* at, Number number)
{
    for (std::size_t i = 0; i < sizeof number; ++i)
        at[i] = static_cast<unsigned char>(number >> (8 * i));
}

template <typename Number> Number load(const unsigned char* at)
{
    Number number = 0;
    for (std::size_t i = 0; i < sizeof number; ++i)
        number = static_cast<Number>(number | static_cast<Number>(at[i]) << (8 * i));
    return number;
}

// Builds one packet: a command word, then arguments, then finish().
class Writer {
public:
    // An empty packet with the command word. A word longer than 79 bytes does not fit the header: false.
    bool begin(std::string_view command, std::uint8_t flags, std::uint64_t sequence);

    // One argument. A request's arguments have no name; a reply's are pairs of name and value.
    // Texts end at their first NUL. More than 65535 arguments do not fit: false.
    bool add(const char* value);
    bool add(const char* name, const char* value);

    // Closes the packet; bytes() is complete from here on.
    void finish();

    const std::vector<unsigned char>& bytes() const { return m_bytes; }

private:
    struct Entry {
        std::uint32_t name;
        std::uint32_t value;
    };
    bool add_entry(std::uint32_t name, const char* value);
    std::uint32_t add_text(const char* text);

    std::vector<unsigned char> m_bytes;
    std::vector<Entry> m_entries;
};

// Reads one packet of any content. What lies outside of the packet, or lacks its end, is missing.
class Reader {
public:
    struct Argument {
        bool in_table = false;        // false: the table of entries does not reach this far
        const char* name = nullptr;   // null when missing
        const char* value = nullptr;  // null when missing
    };

    // The bytes must outlive the reader and all texts taken from it, and not change.
    explicit Reader(std::span<const unsigned char> bytes);

    std::uint8_t flags() const;      // 0 when missing
    std::uint64_t sequence() const;  // 0 when missing
    const char* command() const;     // "" when missing, and when it doesn't end in its field
    std::size_t arguments() const;   // the count that the header states, 0 when missing
    Argument argument(std::size_t index) const;

private:
    const char* text(std::uint32_t offset) const;

    std::span<const unsigned char> m_bytes;
    std::size_t m_texts_end;  // behind the last NUL: no text ends beyond it
};

}  // namespace packet
