#include "deadly_packet.hpp"

#include <algorithm>

#include "platform/packet.hpp"

namespace {

constexpr std::size_t LONG_PACKET = std::size_t{64} * 1024;

bool begins_as_packet(const std::vector<unsigned char>& bytes)
{
    return bytes.size() >= sizeof packet::MAGIC_BYTES &&
           std::equal(std::begin(packet::MAGIC_BYTES), std::end(packet::MAGIC_BYTES), bytes.begin());
}

bool is_garbled(const std::vector<unsigned char>& bytes)
{
    const packet::Reader reader(bytes);
    for (std::size_t i = 0; i < reader.arguments(); ++i)
        if (!reader.argument(i).value)
            return true;
    return false;
}

}  // namespace

bool is_deadly(const std::vector<unsigned char>& bytes, std::string_view kind)
{
    const bool is_short = bytes.size() < packet::HEADER_SIZE;
    return (kind == "short" && is_short && !begins_as_packet(bytes)) ||
           (kind == "split" && is_short && begins_as_packet(bytes)) ||
           (kind == "long" && bytes.size() > LONG_PACKET) || (kind == "garbled" && is_garbled(bytes));
}
