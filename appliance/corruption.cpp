#include "corruption.hpp"

#include <cstddef>
#include <random>

#include "platform/packet.hpp"

namespace {

using Bytes = std::vector<unsigned char>;

void store(Bytes& bytes, std::size_t at, std::size_t size, std::uint64_t number)
{
    for (std::size_t i = 0; i < size; ++i)
        bytes[at + i] = static_cast<unsigned char>(number >> (8 * i));
}

std::uint32_t load(const Bytes& bytes, std::size_t at, std::size_t size)
{
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < size; ++i)
        number |= std::uint32_t{bytes[at + i]} << (8 * i);
    return number;
}

// Where the entry of that index stands.
std::size_t entry_at(const Bytes& bytes, std::size_t index)
{
    return load(bytes, packet::TABLE_AT, 4) + index * packet::ENTRY_SIZE;
}

std::size_t entry_count(const Bytes& bytes)
{
    return load(bytes, packet::COUNT_AT, 2);
}

void make_short(Bytes& bytes, std::uint64_t)
{
    bytes.resize(3);
}

void empty_header(Bytes& bytes, std::uint64_t)
{
    bytes.resize(packet::HEADER_SIZE);
    store(bytes, packet::TABLE_AT, 4, 0);
}

void exaggerate_count(Bytes& bytes, std::uint64_t)
{
    store(bytes, packet::COUNT_AT, 2, 0xffff);
}

void move_table_outside(Bytes& bytes, std::uint64_t)
{
    store(bytes, packet::TABLE_AT, 4, 0xfffffff0);
}

void move_texts_outside(Bytes& bytes, std::uint64_t)
{
    for (std::size_t i = 0; i < entry_count(bytes); ++i)
        store(bytes, entry_at(bytes, i) + 4 * (i % 2), 4, i % 3 == 0 ? bytes.size() : 0xffffffff - i);
}

void cut_last_nul(Bytes& bytes, std::uint64_t)
{
    constexpr std::string_view ENDLESS = "and so on";
    store(bytes, entry_at(bytes, entry_count(bytes) - 1) + 4, 4, bytes.size());
    bytes.insert(bytes.end(), ENDLESS.begin(), ENDLESS.end());
    store(bytes, packet::LENGTH_AT, 4, bytes.size());
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
