#include "control/reports/live_update.hpp"

#include <algorithm>
#include <sys/stat.h>

#include "platform/request.hpp"
#include "platform/time.hpp"

namespace {

constexpr std::uint64_t WAIT_US = 30000000;

CommPacket make_set(const std::string& key, const std::string& value)
{
    CommPacket packet = begin_request("set");
    if (!packet)
        return nullptr;
    comm_socket_v4_packet_write_argvf(packet.get(), "%s", key.c_str());
    comm_socket_v4_packet_write_argvf(packet.get(), "%s", value.c_str());
    comm_socket_v4_packet_write_end(packet.get());
    return packet;
}

// How long is waited at once.
std::uint64_t wait_until(std::uint64_t deadline_us)
{
    return std::min(monotonic_clock_us() + WAIT_US, deadline_us);
}

// A socket that can't take the packet yet is waited for as long as there is time. False when it never will:
// the item has hung up, or the packet is too large.
bool send(comm_socket_v4* connection, comm_socket_v4_packet* packet, std::uint64_t deadline_us)
{
    int sent = 0;
    while ((sent = comm_socket_v4_packet_send_to_server(connection, packet)) == 0 &&
           monotonic_clock_us() < deadline_us)
        comm_socket_v4_wait_for_client_to_server_writeable(connection, wait_until(deadline_us));
    return sent > 0;
}

// What the item answers is not looked at; packets that are no answer are passed over, however many, as long
// as there is time.
bool wait_for_answer(comm_socket_v4* connection, std::uint64_t deadline_us)
{
    const std::uint64_t deadline = wait_until(deadline_us);
    do {
        comm_socket_v4_client_from_server_readable(connection, deadline);
        const CommPacket packet(comm_socket_v4_client_get_packet_from_server(connection));
        if (!packet || is_reply(*packet))
            return packet != nullptr;
    } while (monotonic_clock_us() < deadline);
    return false;
}

}  // namespace

bool send_live_update(
    const std::string& socket_path, const SettingChanges& changes, std::uint64_t deadline_us)
{
    struct stat state {};
    if (changes.empty() || ::stat(socket_path.c_str(), &state) != 0 || !S_ISSOCK(state.st_mode))
        return false;
    const CommSocket connection(comm_socket_v4_create());
    if (!connection)
        return false;
    const std::uint64_t now = monotonic_clock_us();
    const auto wait_us = static_cast<std::int64_t>(wait_until(std::max(deadline_us, now + 1)) - now);
    comm_socket_v4_set_connect_timeout(connection.get(), wait_us);
    comm_socket_v4_set_connect_timeout_routine(connection.get(), wait_us);
    if (comm_socket_v4_connect_to(connection.get(), socket_path.c_str()) != 0)
        return false;
    bool is_answered = true;
    for (const auto& [key, value] : changes) {
        const CommPacket packet = make_set(key, value.value_or(""));
        if (!packet || monotonic_clock_us() >= deadline_us)
            return false;
        is_answered &= send(connection.get(), packet.get(), deadline_us) &&
                       wait_for_answer(connection.get(), deadline_us);
    }
    return is_answered;
}
