#include "corruption.hpp"

#include <algorithm>
#include <cstddef>
#include <random>

#include "platform/packet.hpp"

namespace {

using Bytes = std::vector<unsigned char>;

// Where the entry of that index stands.
std::size_t entry_at(const Bytes& bytes, std::size_t index)
{
    return packet::load<std::uint32_t>(bytes.data() + packet::TABLE_AT) + index * packet::ENTRY_SIZE;
}

std::size_t entry_count(const Bytes& bytes)
{
    return packet::load<std::uint16_t>(bytes.data() + packet::COUNT_AT);
}

void make_short(Bytes& bytes, std::uint64_t)
{
    bytes.resize(3);
}

void empty_header(Bytes& bytes, std::uint64_t)
{
    bytes.resize(packet::HEADER_SIZE);
    packet::store(bytes.data() + packet::TABLE_AT, std::uint32_t{0});
}

void exaggerate_count(Bytes& bytes, std::uint64_t)
{
    packet::store(bytes.data() + packet::COUNT_AT, std::uint16_t{0xffff});
}

void move_table_outside(Bytes& bytes, std::uint64_t)
{
    packet::store(bytes.data() + packet::TABLE_AT, std::uint32_t{0xfffffff0});
}

void move_texts_outside(Bytes& bytes, std::uint64_t)
{
    for (std::size_t i = 0; i < entry_count(bytes); ++i)
        packet::store(bytes.data() + entry_at(bytes, i) + 4 * (i % 2),
            static_cast<std::uint32_t>(i % 3 == 0 ? bytes.size() : 0xffffffff - i));
}

void cut_last_nul(Bytes& bytes, std::uint64_t)
{
    constexpr std::string_view ENDLESS = "and so on";
    packet::store(
        bytes.data() + entry_at(bytes, entry_count(bytes) - 1) + 4, static_cast<std::uint32_t>(bytes.size()));
    bytes.insert(bytes.end(), ENDLESS.begin(), ENDLESS.end());
    packet::store(bytes.data() + packet::LENGTH_AT, static_cast<std::uint32_t>(bytes.size()));
}

void clear_sequence(Bytes& bytes, std::uint64_t)
{
    packet::store(bytes.data() + packet::SEQUENCE_AT, std::uint64_t{0});
}

void fill_command(Bytes& bytes, std::uint64_t)
{
    std::fill(bytes.begin() + packet::COMMAND_AT, bytes.begin() + packet::COUNT_AT, 'x');
}

void use_reserved(Bytes& bytes, std::uint64_t)
{
    packet::store(bytes.data() + entry_at(bytes, 0) + 8, std::uint64_t{1});
}

void add_line_feed(Bytes& bytes, std::uint64_t)
{
    bytes[packet::load<std::uint32_t>(bytes.data() + entry_at(bytes, 0)) + 1] = '\n';
}

void randomise(Bytes& bytes, std::uint64_t seed)
{
    std::mt19937_64 noise(seed);
    for (unsigned char& byte : bytes)
        byte = static_cast<unsigned char>(noise());
    bytes[packet::FLAGS_AT] = 0;
}

struct Kind {
    std::string_view name;
    void (*damage)(Bytes& bytes, std::uint64_t seed);
};
constexpr Kind KINDS[] = {
    {"short", make_short},
    {"empty-header", empty_header},
    {"count", exaggerate_count},
    {"table", move_table_outside},
    {"texts", move_texts_outside},
    {"no-nul", cut_last_nul},
    {"sequence", clear_sequence},
    {"command", fill_command},
    {"reserved", use_reserved},
    {"line-feed", add_line_feed},
    {"random", randomise},
};

}  // namespace

bool corrupt_packet(std::vector<unsigned char>& bytes, std::string_view kind, std::uint64_t seed)
{
    for (const Kind& each : KINDS) {
        if (each.name == kind) {
            each.damage(bytes, seed);
            return true;
        }
    }
    return false;
}
