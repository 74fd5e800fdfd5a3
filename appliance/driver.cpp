#include "driver.hpp"

#include <algorithm>
#include <csignal>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include "answer.hpp"
#include "deadly_packet.hpp"
#include "misbehaviour.hpp"
#include "platform/signals.hpp"
#include "platform/socket_io.hpp"
#include "platform/time.hpp"

namespace {

constexpr std::size_t CLIENT_LIMIT = 256;
constexpr std::size_t FLOOD = 100;
constexpr int BACKLOG = 128;

[[noreturn]] void die()
{
    ::kill(::getpid(), SIGKILL);
    ::_exit(1);
}

// A process that has nothing of the driver's but its group, and not even that for long.
void leave_child()
{
    if (::fork() != 0)
        return;
    ::setsid();
    ::closefrom(STDERR_FILENO + 1);
    for (;;)
        ::pause();
}

}  // namespace

bool Driver::open(const std::string& metadir)
{
    const Misbehaviour misbehaviour(m_state.settings);
    if (misbehaviour.leave_child)
        leave_child();
    ::usleep(static_cast<useconds_t>(misbehaviour.start_ms * 1000));
    m_signals = hold_back_end_signals();
    return m_signals && m_socket.listen(metadir, misbehaviour.no_accept ? 0 : BACKLOG, misbehaviour.socket);
}

void Driver::serve()
{
    while (!m_ended) {
        std::vector<pollfd> waited = waited_for();
        poll_until(waited, next_due_us());
        for (std::size_t i = 0; i < m_clients.size(); ++i) {
            if (waited[i + 2].revents & (POLLIN | POLLHUP | POLLERR))
                receive_requests(m_clients[i]);
            send_due(m_clients[i]);
        }
        remove_gone();
        if (waited[1].revents)
            accept_clients();
        end_if_told();
    }
}

// The signals, the listener, then the clients in their order.
std::vector<pollfd> Driver::waited_for() const
{
    const Misbehaviour misbehaviour(m_state.settings);
    const bool accepts =
        !misbehaviour.no_accept && (misbehaviour.clients == 0 || m_clients.size() < misbehaviour.clients);
    std::vector<pollfd> waited;
    waited.reserve(2 + m_clients.size());
    waited.push_back({m_signals.get(), POLLIN, 0});
    waited.push_back({accepts ? m_socket.get() : -1, POLLIN, 0});
    const std::uint64_t now = monotonic_clock_us();
    for (const Client& client : m_clients) {
        const bool sends = !client.outgoing.empty() && client.outgoing.front().due_us <= now;
        const int events = (client.hang_up ? 0 : POLLIN) | (sends ? POLLOUT : 0);
        waited.push_back({client.socket.get(), static_cast<short>(events), 0});
    }
    return waited;
}

// The next time at which something is to be done that no descriptor tells.
std::uint64_t Driver::next_due_us() const
{
    const std::uint64_t exit_after_ms = Misbehaviour(m_state.settings).exit_after_ms;
    std::uint64_t due = exit_after_ms > 0 ? m_state.started_us + exit_after_ms * 1000 : NO_DEADLINE;
    const std::uint64_t now = monotonic_clock_us();
    for (const Client& client : m_clients)
        if (!client.outgoing.empty() && client.outgoing.front().due_us > now)
            due = std::min(due, client.outgoing.front().due_us);
    return due;
}

void Driver::remove_gone()
{
    const bool keeps = Misbehaviour(m_state.settings).keep_connections;
    for (Client& client : m_clients)
        if (client.gone && keeps)
            client.socket.release();
    std::erase_if(m_clients, [](const Client& client) { return client.gone; });
}

// Where there are as many as can be, the one that has been silent longest makes room. Whether there is any.
bool Driver::make_room()
{
    const Misbehaviour misbehaviour(m_state.settings);
    if (m_clients.size() < (misbehaviour.clients > 0 ? misbehaviour.clients : CLIENT_LIMIT))
        return true;
    if (misbehaviour.clients > 0 || misbehaviour.crowd == "shut-out")
        return false;
    const auto longest_silent = std::min_element(m_clients.begin(), m_clients.end(),
        [](const Client& one, const Client& other) { return one.heard_us < other.heard_us; });
    m_clients.erase(misbehaviour.crowd == "oldest" ? m_clients.begin() : longest_silent);
    return true;
}

void Driver::accept_clients()
{
    for (int i = 0; i < BACKLOG; ++i) {
        if (Misbehaviour(m_state.settings).clients > 0 && !make_room())
            return;
        Descriptor accepted(::accept4(m_socket.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (!accepted)
            return;
        if (make_room())
            m_clients.push_back(
                {.socket = std::move(accepted), .outgoing = {}, .heard_us = monotonic_clock_us()});
    }
}

void Driver::lose(Client& client)
{
    if (!client.outgoing.empty() && Misbehaviour(m_state.settings).dies_of == "hang-up")
        die();
    client.gone = true;
}

void Driver::receive_requests(Client& client)
{
    std::vector<unsigned char> request;
    for (;;) {
        switch (receive_packet(client.socket.get(), request)) {
        case Received::NOTHING_YET: return;
        case Received::HUNG_UP: lose(client); return;
        case Received::PACKET: break;
        }
        if (client.hang_up)
            continue;
        client.heard_us = monotonic_clock_us();
        const Misbehaviour misbehaviour(m_state.settings);
        if (is_deadly(request, misbehaviour.dies_of) ||
            (misbehaviour.dies_of == "flood" && client.outgoing.size() > FLOOD))
            die();
        Answer answer = answer_request(m_state, request);
        const std::uint64_t due = monotonic_clock_us() + answer.delay_ms * 1000;
        for (std::vector<unsigned char>& bytes : answer.packets)
            client.outgoing.push_back({std::move(bytes), due});
        client.hang_up = answer.hang_up;
    }
}

void Driver::send_due(Client& client)
{
    while (!client.outgoing.empty() && client.outgoing.front().due_us <= monotonic_clock_us()) {
        const int sent = send_packet(client.socket.get(), client.outgoing.front().bytes);
        if (sent == 0)
            return;
        if (sent < 0)
            lose(client);
        client.outgoing.pop_front();
    }
    client.gone = client.gone || (client.hang_up && client.outgoing.empty());
}

void Driver::end_if_told()
{
    const Misbehaviour misbehaviour(m_state.settings);
    signalfd_siginfo signal{};
    const bool signalled = ::read(m_signals.get(), &signal, sizeof signal) > 0;
    const bool timed_out = misbehaviour.exit_after_ms > 0 &&
                           monotonic_clock_us() >= m_state.started_us + misbehaviour.exit_after_ms * 1000;
    m_ended = timed_out || (signalled && !misbehaviour.ignore_sigterm);
    // A driver has devices to close before it is gone.
    if (m_ended && !timed_out)
        ::usleep(static_cast<useconds_t>(misbehaviour.shutdown_ms * 1000));
    if (timed_out || misbehaviour.leave_socket)
        m_socket.leave();
}
