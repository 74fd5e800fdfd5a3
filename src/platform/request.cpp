#include "platform/request.hpp"

#include "platform/packet.hpp"

CommPacket begin_request(const char* command_word)
{
    CommPacket request(comm_socket_v4_packet_create());
    if (!request)
        return nullptr;
    request->sequence = 0;
    request->flags = static_cast<std::uint8_t>((request->flags | packet::FLAG_REQUEST) & ~packet::FLAG_EVENT);
    if (comm_socket_v4_packet_begin_writing(request.get(), 0, command_word, nullptr) != 0)
        return nullptr;
    return request;
}

bool is_reply(const comm_socket_v4_packet& packet)
{
    return (packet.flags & (packet::FLAG_REQUEST | packet::FLAG_EVENT)) == 0;
}
