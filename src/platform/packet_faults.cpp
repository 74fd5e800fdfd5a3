#include "platform/packet_faults.hpp"

#include <algorithm>
#include <random>

#include "platform/packet.hpp"

namespace packet {
namespace {

using Bytes = std::span<const unsigned char>;

std::string number(std::uint64_t value)
{
    return std::to_string(value);
}

std::string fault_of_size(Bytes bytes)
{
    if (bytes.size() >= HEADER_SIZE)
        return {};
    return "the reply of " + number(bytes.size()) + " bytes is shorter than its header (" +
           number(HEADER_SIZE) + "); the tools take it for an empty report";
}

std::string fault_of_magic(Bytes bytes)
{
    if (std::equal(std::begin(MAGIC_BYTES), std::end(MAGIC_BYTES), bytes.begin()))
        return {};
    return "the reply doesn't begin with \"TVP4\"; a client that looks takes it for none";
}

std::string fault_of_length(Bytes bytes)
{
    const auto told = load<std::uint32_t>(bytes.data() + LENGTH_AT);
    if (told == bytes.size())
        return {};
    return "the reply of " + number(bytes.size()) + " bytes tells a length of " + number(told) +
           "; a client that looks takes it for cut";
}

std::string fault_of_command(Bytes bytes)
{
    const Bytes word = bytes.subspan(COMMAND_AT, COUNT_AT - COMMAND_AT);
    const auto end = std::find(word.begin(), word.end(), 0);
    if (end != word.end() && std::all_of(end, word.end(), [](unsigned char byte) { return byte == 0; }))
        return {};
    return "the command word of the reply isn't filled up with NULs; a client that looks finds no word";
}

std::uint32_t table_of(Bytes bytes)
{
    return load<std::uint32_t>(bytes.data() + TABLE_AT);
}

std::size_t count_of(Bytes bytes)
{
    return load<std::uint16_t>(bytes.data() + COUNT_AT);
}

std::string fault_of_table(Bytes bytes)
{
    const std::uint32_t table = table_of(bytes);
    if (count_of(bytes) == 0 || (table >= HEADER_SIZE && table < bytes.size()))
        return {};
    return "the table of the reply of " + number(bytes.size()) + " bytes is at " + number(table) +
           "; the tools find no entry";
}

std::string fault_of_count(Bytes bytes)
{
    const std::size_t fit = count_of(bytes) == 0 ? 0 : (bytes.size() - table_of(bytes)) / ENTRY_SIZE;
    if (count_of(bytes) <= fit)
        return {};
    return "the reply counts " + number(count_of(bytes)) + " entries and has room for " + number(fit) +
           "; the tools warn of each that is missing";
}

// The first of the offsets that isn't fit.
template <typename Fit> std::string first_offset(Bytes bytes, const char* what, const Fit& fits)
{
    for (std::size_t i = 0; i < 2 * count_of(bytes); ++i) {
        const auto offset = load<std::uint32_t>(
            bytes.data() + table_of(bytes) + i / 2 * ENTRY_SIZE + i % 2 * sizeof(std::uint32_t));
        if (!fits(offset))
            return std::string("the ") + (i % 2 == 0 ? "name" : "value") + " of entry " + number(i / 2 + 1) +
                   ", at " + number(offset) + ", " + what + "; the tools skip the entry";
    }
    return {};
}

std::string fault_of_texts(Bytes bytes)
{
    return first_offset(bytes, "lies outside of the texts",
        [&](std::uint32_t offset) { return offset >= HEADER_SIZE && offset < bytes.size(); });
}

std::string fault_of_ends(Bytes bytes)
{
    return first_offset(bytes, "has no NUL", [&](std::uint32_t offset) {
        return std::find(bytes.begin() + offset, bytes.end(), 0) != bytes.end();
    });
}

std::string fault_of_reserved(Bytes bytes)
{
    for (std::size_t i = 0; i < count_of(bytes); ++i)
        if (load<std::uint64_t>(bytes.data() + table_of(bytes) + i * ENTRY_SIZE + 8) != 0)
            return "the last 8 bytes of entry " + number(i + 1) +
                   " aren't 0; they will mean something one day";
    return {};
}

// In the order of the parts.
constexpr std::string (*FAULTS[])(Bytes) = {fault_of_size, fault_of_magic, fault_of_length, fault_of_command,
    fault_of_table, fault_of_count, fault_of_texts, fault_of_ends, fault_of_reserved};

std::vector<unsigned char> request(std::uint16_t count, std::uint32_t table)
{
    Writer writer;
    writer.begin("set", FLAG_REQUEST, 1);
    writer.add("key");
    writer.add("value");
    writer.finish();
    std::vector<unsigned char> bytes = writer.bytes();
    store(bytes.data() + COUNT_AT, count);
    store(bytes.data() + TABLE_AT, table);
    return bytes;
}

}  // namespace

std::string fault(Part part, Bytes bytes)
{
    return FAULTS[static_cast<std::size_t>(part)](bytes);
}

std::vector<std::vector<unsigned char>> garbled_requests()
{
    std::vector<std::vector<unsigned char>> requests;
    for (const std::uint16_t count : {std::uint16_t{2}, std::uint16_t{0xffff}})
        for (const std::uint32_t at : {std::uint32_t{HEADER_SIZE}, 0U, 0x7fffffffU, 0xffffffffU})
            requests.push_back(request(count, at));
    std::mt19937 noise(4);  // NOLINT(cert-msc51-cpp): the same for every driver
    for (std::size_t size = HEADER_SIZE; size < 2 * HEADER_SIZE; size += 5) {
        std::vector<unsigned char> bytes(size);
        std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<unsigned char>(noise()); });
        bytes[FLAGS_AT] = FLAG_REQUEST;
        requests.push_back(std::move(bytes));
    }
    return requests;
}

std::vector<unsigned char> overlong_request(std::size_t more)
{
    Writer writer;
    writer.begin("report", FLAG_REQUEST, 1);
    writer.finish();
    std::vector<unsigned char> bytes = writer.bytes();
    bytes.resize(bytes.size() + more, 'x');
    return bytes;
}

}  // namespace packet
