#include "platform/comm.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>
#include <poll.h>
#include <sys/time.h>

#include "platform/packet.hpp"
#include "platform/socket_io.hpp"
#include "platform/time.hpp"

struct comm_socket_v4 {
    Descriptor descriptor;
    std::int64_t connect_timeout = 0;
    std::int64_t connect_timeout_routine = 0;
};

namespace {

// A packet is either being written or has been received; both keep their bytes here.
struct Packet final : comm_socket_v4_packet {
    packet::Writer writer;
    std::vector<unsigned char> received;
    packet::Reader reader{received};  // is made anew once something was received
};

Packet* packet_of(comm_socket_v4_packet* handle)
{
    return static_cast<Packet*>(handle);
}

const Packet* packet_of(const comm_socket_v4_packet* handle)
{
    return static_cast<const Packet*>(handle);
}

int wait_for(int descriptor, short events, std::uint64_t deadline)
{
    pollfd awaited[] = {{descriptor, events, 0}};
    return poll_until(awaited, deadline);
}

// The kernel waits for room in a listener's backlog as long as it would wait to send.
bool limit_connect(int descriptor, std::int64_t timeout_us)
{
    timeval limit{};
    limit.tv_sec = static_cast<time_t>(timeout_us / 1000000);
    limit.tv_usec = static_cast<suseconds_t>(timeout_us % 1000000);
    return ::setsockopt(descriptor, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit) == 0;
}

// The shorter of the two limits, where 0 is none; what is below 0 has run out.
std::int64_t shorter_limit(std::int64_t one, std::int64_t other)
{
    if (one == 0 || other == 0)
        return one == 0 ? other : one;
    return std::min(one, other);
}

}  // namespace

comm_socket_v4* comm_socket_v4_create()
{
    return new (std::nothrow) comm_socket_v4;
}

comm_socket_v4* comm_socket_v4_destroy(comm_socket_v4* socket)
{
    delete socket;
    return nullptr;
}

void comm_socket_v4_set_connect_timeout(comm_socket_v4* socket, std::int64_t us)
{
    socket->connect_timeout = us;
}

void comm_socket_v4_set_connect_timeout_routine(comm_socket_v4* socket, std::int64_t us)
{
    socket->connect_timeout_routine = us;
}

int comm_socket_v4_connect_to(comm_socket_v4* socket, const char* path)
{
    SocketAddress target;
    if (!target.set(path))
        return -1;
    const std::int64_t limit = shorter_limit(socket->connect_timeout, socket->connect_timeout_routine);
    const int no_wait = limit < 0 ? SOCK_NONBLOCK : 0;
    Descriptor descriptor(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | no_wait, 0));
    if (!descriptor || (limit > 0 && !limit_connect(descriptor.get(), limit)))
        return -1;
    const auto* address = reinterpret_cast<const sockaddr*>(&target.address);
    if (TEMP_FAILURE_RETRY(::connect(descriptor.get(), address, target.length)) != 0)
        return -1;
    socket->descriptor = std::move(descriptor);
    return 0;
}

comm_socket_v4_packet* comm_socket_v4_packet_create()
{
    return new (std::nothrow) Packet;
}

void comm_socket_v4_packet_release(comm_socket_v4_packet* packet)
{
    delete packet_of(packet);
}

int comm_socket_v4_packet_begin_writing(comm_socket_v4_packet* packet, int, const char* command, const void*)
{
    return packet_of(packet)->writer.begin(command, packet->flags, packet->sequence) ? 0 : -1;
}

int comm_socket_v4_packet_write_argvf(comm_socket_v4_packet* packet, const char* format, ...)
{
    char* text = nullptr;
    va_list arguments;
    va_start(arguments, format);
    const int length = ::vasprintf(&text, format, arguments);
    va_end(arguments);
    if (length < 0)
        return -1;
    const bool added = packet_of(packet)->writer.add(text);
    std::free(text);
    return added ? 0 : -1;
}

void comm_socket_v4_packet_write_end(comm_socket_v4_packet* packet)
{
    packet_of(packet)->writer.finish();
}

int comm_socket_v4_packet_send_to_server(comm_socket_v4* socket, comm_socket_v4_packet* packet)
{
    return send_packet(socket->descriptor.get(), packet_of(packet)->writer.bytes());
}

int comm_socket_v4_wait_for_client_to_server_writeable(comm_socket_v4* socket, std::uint64_t deadline)
{
    return wait_for(socket->descriptor.get(), POLLOUT, deadline);
}

int comm_socket_v4_client_from_server_readable(comm_socket_v4* socket, std::uint64_t deadline)
{
    return wait_for(socket->descriptor.get(), POLLIN, deadline);
}

int comm_socket_v4_descriptor(const comm_socket_v4* socket)
{
    return socket->descriptor.get();
}

int comm_socket_v4_idle(comm_socket_v4* socket)
{
    pollfd state{socket->descriptor.get(), POLLIN, 0};
    if (::poll(&state, 1, 0) < 0)
        return errno == EINTR ? 0 : -1;
    if ((state.revents & (POLLHUP | POLLERR | POLLNVAL)) == 0)
        return 0;
    // What came before the server hung up is still to be had.
    return has_unread_bytes(socket->descriptor.get()) ? 0 : -1;
}

comm_socket_v4_packet* comm_socket_v4_client_get_packet_from_server(comm_socket_v4* socket)
{
    auto packet = std::make_unique<Packet>();
    if (receive_packet(socket->descriptor.get(), packet->received) != Received::PACKET)
        return nullptr;
    packet->reader = packet::Reader(packet->received);
    packet->flags = packet->reader.flags();
    packet->sequence = packet->reader.sequence();
    return packet.release();
}

std::size_t comm_socket_v4_packet_entries(const comm_socket_v4_packet* packet)
{
    return packet_of(packet)->reader.arguments();
}

comm_socket_v4_entry comm_socket_v4_packet_entry(const comm_socket_v4_packet* packet, std::size_t index)
{
    const packet::Reader::Argument argument = packet_of(packet)->reader.argument(index);
    return {argument.in_table, argument.name, argument.value};
}
