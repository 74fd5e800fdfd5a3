#include "control/reports/report_exchange.hpp"

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>
#include <vector>

#include "platform/request.hpp"
#include "platform/time.hpp"

namespace {

// Nothing tells when a listener's backlog has room again.
constexpr std::uint64_t FIRST_PAUSE_US = 1000;
constexpr std::uint64_t LONGEST_PAUSE_US = 64000;

// More packets than the kernel lets wait for a reader.
constexpr int LATE_PACKETS = 1000;

bool is_socket(const std::string& path)
{
    struct stat state {};
    return ::stat(path.c_str(), &state) == 0 && S_ISSOCK(state.st_mode);
}

CommPacket make_report_request()
{
    CommPacket request = begin_request("report");
    if (request)
        comm_socket_v4_packet_write_end(request.get());
    return request;
}

}  // namespace

std::uint64_t report_deadline(int limit_s)
{
    if (limit_s == 0)
        return NO_DEADLINE;
    return limit_s < 0 ? 0 : monotonic_clock_us() + static_cast<std::uint64_t>(limit_s) * 1000000;
}

ReportExchange::ReportExchange(std::string path, std::uint64_t deadline_us, CommSocket connection)
    : m_path(std::move(path)), m_deadline(deadline_us), m_step(connection ? Step::SENDING : Step::CONNECTING),
      m_connection(std::move(connection))
{
    if (is_socket(m_path))
        proceed();
    else
        give_up(ReportOutcome::NO_SOCKET);
}

void ReportExchange::proceed()
{
    if (m_step == Step::CONNECTING)
        connect();
    if (m_step == Step::SENDING)
        send();
    else if (m_step == Step::RECEIVING)
        receive();
}

void ReportExchange::connect()
{
    m_connection.reset(comm_socket_v4_create());
    if (!m_connection)
        return give_up(ReportOutcome::TIMED_OUT);
    comm_socket_v4_set_connect_timeout(m_connection.get(), -1);
    comm_socket_v4_set_connect_timeout_routine(m_connection.get(), -1);
    if (comm_socket_v4_connect_to(m_connection.get(), m_path.c_str()) == 0) {
        m_step = Step::SENDING;
        return;
    }
    const bool is_full = errno == EAGAIN;
    m_connection.reset();
    if (is_time_up() || (!is_full && m_deadline == NO_DEADLINE))
        return give_up(ReportOutcome::CONNECT_TIMED_OUT);
    if (!is_full)
        return give_up(ReportOutcome::CONNECT_FAILED);
    m_between_attempts = std::clamp(2 * m_between_attempts, FIRST_PAUSE_US, LONGEST_PAUSE_US);
    m_next_attempt = monotonic_clock_us() + m_between_attempts;
}

void ReportExchange::send()
{
    const CommPacket request = make_report_request();
    if (!request)
        return give_up(ReportOutcome::TIMED_OUT);
    const int sent = comm_socket_v4_packet_send_to_server(m_connection.get(), request.get());
    if (sent < 0)
        m_outcome = ReportOutcome::HUNG_UP;
    else if (sent > 0)
        m_step = Step::RECEIVING;
    else if (is_time_up())
        give_up(ReportOutcome::TIMED_OUT);
}

// One packet at a time, so that an item that sends without end leaves the others their turns. What has come
// in time counts even if it is read late.
void ReportExchange::receive()
{
    const bool is_last = is_time_up();
    if (m_deadline == 0)
        return give_up(ReportOutcome::TIMED_OUT);
    int left = is_last ? LATE_PACKETS : 1;
    do {
        m_reply.reset(comm_socket_v4_client_get_packet_from_server(m_connection.get()));
        if (m_reply && is_reply(*m_reply))
            m_outcome = ReportOutcome::REPLIED;
        else if (!m_reply && comm_socket_v4_idle(m_connection.get()) < 0)
            m_outcome = ReportOutcome::HUNG_UP;
        if (has_ended())
            return;
    } while (--left > 0 && comm_socket_v4_client_from_server_readable(m_connection.get(), 0) > 0);
    if (is_last)
        give_up(ReportOutcome::TIMED_OUT);
}

bool ReportExchange::is_time_up() const
{
    return monotonic_clock_us() >= m_deadline;
}

void ReportExchange::give_up(ReportOutcome outcome)
{
    m_connection.reset();
    m_reply.reset();
    m_outcome = outcome;
}

pollfd ReportExchange::awaited() const
{
    if (m_step == Step::CONNECTING)
        return {-1, 0, 0};
    const short event = m_step == Step::SENDING ? POLLOUT : POLLIN;
    return {comm_socket_v4_descriptor(m_connection.get()), event, 0};
}

std::uint64_t ReportExchange::due() const
{
    return m_step == Step::CONNECTING ? std::min(m_next_attempt, m_deadline) : m_deadline;
}

void proceed_with_any(std::span<ReportExchange* const> exchanges)
{
    std::vector<pollfd> awaited;
    awaited.reserve(exchanges.size());
    std::uint64_t due = NO_DEADLINE;
    for (const ReportExchange* exchange : exchanges) {
        awaited.push_back(exchange->awaited());
        due = std::min(due, exchange->due());
    }
    poll_until(awaited, due);
    const std::uint64_t now = monotonic_clock_us();
    for (std::size_t i = 0; i < exchanges.size(); ++i)
        if (awaited[i].revents != 0 || exchanges[i]->due() <= now)
            exchanges[i]->proceed();
}

void proceed_to_end(ReportExchange& exchange)
{
    ReportExchange* const one[] = {&exchange};
    while (!exchange.has_ended())
        proceed_with_any(one);
}
