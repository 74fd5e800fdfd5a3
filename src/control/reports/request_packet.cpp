#include "control/reports/request_packet.hpp"

namespace {

constexpr std::uint8_t FLAG_REQUEST = 1;
constexpr std::uint8_t FLAG_EVENT = 2;

}  // namespace

CommPacket begin_request(const char* command_word)
{
    CommPacket packet(comm_socket_v4_packet_create());
    if (!packet)
        return nullptr;
    packet->sequence = 0;
    packet->flags = static_cast<std::uint8_t>((packet->flags | FLAG_REQUEST) & ~FLAG_EVENT);
    if (comm_socket_v4_packet_begin_writing(packet.get(), 0, command_word, nullptr) != 0)
        return nullptr;
    return packet;
}

bool is_reply(const comm_socket_v4_packet& packet)
{
    return (packet.flags & (FLAG_REQUEST | FLAG_EVENT)) == 0;
}
