#include "driver.hpp"

#include <algorithm>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include "answer.hpp"
#include "misbehaviour.hpp"
#include "platform/signals.hpp"
#include "platform/socket_io.hpp"
#include "platform/time.hpp"

namespace {

constexpr std::size_t CLIENT_LIMIT = 256;
constexpr int BACKLOG = 128;

}  // namespace

bool Driver::open(const std::string& metadir)
{
    m_signals = hold_back_end_signals();
    return m_signals && m_socket.listen(metadir, Misbehaviour(m_state.settings).no_accept ? 0 : BACKLOG);
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
        std::erase_if(m_clients, [](const Client& client) { return client.gone; });
        if (waited[1].revents)
            accept_clients();
        end_if_told();
    }
}

// The signals, the listener, then the clients in their order.
std::vector<pollfd> Driver::waited_for() const
{
    const bool accepts = !Misbehaviour(m_state.settings).no_accept;
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

// Where there are as many as can be, the one that has been silent longest makes room.
void Driver::accept_clients()
{
    for (int i = 0; i < BACKLOG; ++i) {
        Descriptor accepted(::accept4(m_socket.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (!accepted)
            return;
        if (m_clients.size() == CLIENT_LIMIT)
            m_clients.erase(std::min_element(m_clients.begin(), m_clients.end(),
                [](const Client& one, const Client& other) { return one.heard_us < other.heard_us; }));
        m_clients.push_back(
            {.socket = std::move(accepted), .outgoing = {}, .heard_us = monotonic_clock_us()});
    }
}

void Driver::receive_requests(Client& client)
{
    std::vector<unsigned char> request;
    for (;;) {
        switch (receive_packet(client.socket.get(), request)) {
        case Received::NOTHING_YET: return;
        case Received::HUNG_UP: client.gone = true; return;
        case Received::PACKET: break;
        }
        if (client.hang_up)
            continue;
        client.heard_us = monotonic_clock_us();
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
        client.gone = client.gone || sent < 0;
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
