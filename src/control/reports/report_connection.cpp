#include "control/reports/report_connection.hpp"

#include "platform/time.hpp"

namespace {

constexpr std::uint64_t BETWEEN_QUERIES_US = 1000000;
constexpr std::uint64_t BACK_OFF_US = 10000000;  // on top of that

}  // namespace

std::optional<ReportExchange> ReportConnection::begin(const std::string& path, std::uint64_t deadline_us)
{
    if (m_path != path)
        close();
    m_path = path;
    const std::uint64_t now = monotonic_clock_us();
    std::uint64_t& held_off = m_held_off[path];
    if (now < held_off)
        return {};
    if (!m_connection)
        held_off = now + BETWEEN_QUERIES_US;
    return ReportExchange(path, deadline_us, std::move(m_connection));
}

void ReportConnection::keep(ReportExchange& exchange)
{
    m_connection = exchange.release_connection();
    switch (exchange.outcome()) {
    case ReportOutcome::CONNECT_FAILED:
    case ReportOutcome::CONNECT_TIMED_OUT:
        m_held_off[exchange.path()] = monotonic_clock_us() + BACK_OFF_US + BETWEEN_QUERIES_US;
        break;
    case ReportOutcome::REPLIED:
    case ReportOutcome::HUNG_UP:
    case ReportOutcome::NO_SOCKET: m_held_off.erase(exchange.path()); break;
    case ReportOutcome::UNDER_WAY:
    case ReportOutcome::TIMED_OUT: break;
    }
}
