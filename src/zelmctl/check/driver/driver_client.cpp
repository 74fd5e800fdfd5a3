#include "zelmctl/check/driver/driver_client.hpp"

#include <cerrno>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include "platform/packet.hpp"
#include "platform/socket_io.hpp"
#include "platform/time.hpp"

namespace {

constexpr useconds_t CONNECT_INTERVAL_US = 2000;

// Whether a packet may be sent by no driver: only clients ask, and a reply is no event.
bool is_unfit(const packet::Reader& reader, std::uint64_t sequence)
{
    return (reader.flags() & packet::FLAG_REQUEST) != 0 ||
           ((reader.flags() & packet::FLAG_EVENT) != 0 && reader.sequence() == sequence);
}

}  // namespace

PacketBytes request(
    std::string_view command, const std::vector<std::string>& arguments, std::uint64_t sequence)
{
    packet::Writer writer;
    writer.begin(command, packet::FLAG_REQUEST, sequence);
    for (const std::string& argument : arguments)
        writer.add(argument.c_str());
    writer.finish();
    return writer.bytes();
}

PacketBytes no_request()
{
    packet::Writer writer;
    writer.begin("report", 0, 1);
    writer.finish();
    return writer.bytes();
}

bool DriverClient::connect(const std::string& entry)
{
    Descriptor socket(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    SocketAddress at;
    if (!socket || !at.set(entry) ||
        ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&at.address), at.length) != 0)
        return false;
    m_socket = std::move(socket);
    return true;
}

bool DriverClient::connect_by(const std::string& entry, std::uint64_t deadline_us)
{
    while (!connect(entry)) {
        if (errno != EAGAIN || monotonic_clock_us() >= deadline_us)
            return false;
        ::usleep(CONNECT_INTERVAL_US);
    }
    return true;
}

int DriverClient::send(const PacketBytes& bytes) const
{
    return send_packet(m_socket.get(), bytes);
}

bool DriverClient::send_by(const PacketBytes& bytes, std::uint64_t deadline_us) const
{
    int sent = 0;
    while ((sent = send(bytes)) == 0 && monotonic_clock_us() < deadline_us) {
        pollfd awaited[] = {{m_socket.get(), POLLOUT, 0}};
        poll_until(awaited, deadline_us);
    }
    return sent > 0;
}

bool DriverClient::send_request(
    std::string_view command, const std::vector<std::string>& arguments, std::uint64_t deadline_us)
{
    return send_by(request(command, arguments, ++m_sequence), deadline_us);
}

Heard DriverClient::listen(std::uint64_t deadline_us)
{
    Heard heard{.asked = m_sequence};
    while (heard.packet.empty() && !heard.hung_up && monotonic_clock_us() < deadline_us) {
        pollfd awaited[] = {{m_socket.get(), POLLIN, 0}};
        PacketBytes bytes;
        poll_until(awaited, deadline_us);
        const Received received = receive_packet(m_socket.get(), bytes);
        heard.hung_up = received == Received::HUNG_UP;
        if (received != Received::PACKET)
            continue;
        const packet::Reader reader(bytes);
        heard.is_flagged = is_unfit(reader, m_sequence);
        if (!heard.is_flagged && (reader.flags() & packet::FLAG_EVENT) != 0)
            continue;
        heard.answered = reader.sequence();
        heard.packet = std::move(bytes);
    }
    return heard;
}

Heard DriverClient::ask(
    std::string_view command, const std::vector<std::string>& arguments, std::uint64_t deadline_us)
{
    if (!send_request(command, arguments, deadline_us))
        return {.asked = m_sequence, .hung_up = is_hung_up()};
    return listen(deadline_us);
}

bool DriverClient::is_hung_up() const
{
    pollfd state[] = {{m_socket.get(), POLLRDHUP, 0}};
    return ::poll(state, 1, 0) > 0;
}
