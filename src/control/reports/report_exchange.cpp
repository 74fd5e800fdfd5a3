#include "control/reports/report_exchange.hpp"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <map>
#include <sys/stat.h>
#include <vector>

#include "platform/request.hpp"
#include "control/run_state.hpp"
#include "platform/time.hpp"

namespace {

constexpr std::uint64_t SECOND_US = 1000000;
constexpr std::uint64_t BACK_OFF_US = 10 * SECOND_US;  // on top of the second between two queries

// Nothing tells when a listener's backlog has room again.
constexpr std::uint64_t FIRST_PAUSE_US = 1000;
constexpr std::uint64_t LONGEST_PAUSE_US = 64000;

// More packets than the kernel lets wait for a reader.
constexpr int LATE_PACKETS = 1000;

// When a socket was tried last; 0 once an exchange has come to its end. A time in the future holds off
// further attempts.
std::map<std::string, std::uint64_t> connect_last_attempt;

void progress(const char* format, const std::string& path = {})
{
    if (verbose)
        std::fprintf(stderr_write, format, path.c_str());
}

bool is_socket(const std::string& path)
{
    struct stat state {};
    return ::stat(path.c_str(), &state) == 0 && S_ISSOCK(state.st_mode);
}

bool is_held_off(const std::string& path)
{
    const auto attempt = connect_last_attempt.find(path);
    return attempt != connect_last_attempt.end() && monotonic_clock_us() < attempt->second + SECOND_US;
}

std::uint64_t deadline_from_now()
{
    if (per_item_timeout == 0)
        return NO_DEADLINE;
    return monotonic_clock_us() + static_cast<std::uint64_t>(std::max(per_item_timeout, 0)) * SECOND_US;
}

// The request is the same for all items. Null on failure.
comm_socket_v4_packet* report_request()
{
    static const CommPacket request = [] {
        CommPacket begun = begin_request("report");
        if (begun)
            comm_socket_v4_packet_write_end(begun.get());
        return begun;
    }();
    return request.get();
}

}  // namespace

ReportExchange::ReportExchange(std::string path, CommSocket connection)
    : m_path(std::move(path)), m_deadline(deadline_from_now()), m_connection(std::move(connection))
{
    if (!is_socket(m_path) || is_held_off(m_path)) {
        m_step = Step::ENDED;
        return;
    }
    if (m_connection) {
        progress("Re-using connection to %s\n", m_path);
        m_step = Step::SENDING;
    } else {
        progress("Connecting to %s\n", m_path);
        connect_last_attempt[m_path] = monotonic_clock_us();
    }
    proceed();
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
    if (!m_connection) {
        m_step = Step::ENDED;
        return;
    }
    comm_socket_v4_set_connect_timeout(m_connection.get(), -1);
    comm_socket_v4_set_connect_timeout_routine(m_connection.get(), -1);
    if (comm_socket_v4_connect_to(m_connection.get(), m_path.c_str()) == 0) {
        m_step = Step::SENDING;
        return;
    }
    if (errno != EAGAIN || is_time_up()) {
        fail_to_connect();
        return;
    }
    m_connection.reset();
    m_between_attempts = std::clamp(2 * m_between_attempts, FIRST_PAUSE_US, LONGEST_PAUSE_US);
    m_next_attempt = monotonic_clock_us() + m_between_attempts;
}

// Without a limit it counts as run out, since there is nothing left of it.
void ReportExchange::fail_to_connect()
{
    give_up();
    connect_last_attempt[m_path] = monotonic_clock_us() + BACK_OFF_US;
    progress("Connection failed\n");
    if (per_item_timeout != 0 && !is_time_up())
        return;
    progress("Timeout\n");
    m_result = -1;
}

void ReportExchange::send()
{
    if (!report_request()) {
        give_up();
        connect_last_attempt[m_path] = monotonic_clock_us() + BACK_OFF_US;
        return;
    }
    const int sent = comm_socket_v4_packet_send_to_server(m_connection.get(), report_request());
    if (sent < 0)
        end(0);
    else if (sent > 0)
        m_step = Step::RECEIVING;
    else if (is_time_up())
        give_up();
}

// One packet at a time, so that an item that sends without end leaves the others their turns. What has come
// in time counts even if it is read late.
void ReportExchange::receive()
{
    const bool is_last = is_time_up();
    if (per_item_timeout < 0)
        return give_up();
    int left = is_last ? LATE_PACKETS : 1;
    do {
        m_reply.reset(comm_socket_v4_client_get_packet_from_server(m_connection.get()));
        if (m_reply && is_reply(*m_reply))
            return end(1);
        if (!m_reply && comm_socket_v4_idle(m_connection.get()) < 0)
            return end(0);
    } while (--left > 0 && comm_socket_v4_client_from_server_readable(m_connection.get(), 0) > 0);
    if (is_last)
        give_up();
}

bool ReportExchange::is_time_up() const
{
    return monotonic_clock_us() >= m_deadline;
}

// The exchange came to its end, with or without a reply.
void ReportExchange::end(int result)
{
    connect_last_attempt[m_path] = 0;
    m_step = Step::ENDED;
    m_result = result;
}

void ReportExchange::give_up()
{
    m_connection.reset();
    m_reply.reset();
    m_step = Step::ENDED;
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
