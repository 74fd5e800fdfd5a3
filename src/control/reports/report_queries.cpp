#include "control/reports/report_queries.hpp"

#include <algorithm>
#include <sys/resource.h>

namespace {

constexpr rlim_t LARGEST_WINDOW = 512;
constexpr rlim_t SPARE_DESCRIPTORS = 4;  // for settings files and directories, where there are few in all

std::size_t window_of_connections()
{
    rlimit limit{};
    ::getrlimit(RLIMIT_NOFILE, &limit);
    const rlim_t half =
        std::clamp(limit.rlim_cur / 2, SPARE_DESCRIPTORS + 1, SPARE_DESCRIPTORS + LARGEST_WINDOW);
    return static_cast<std::size_t>(half - SPARE_DESCRIPTORS);
}

}  // namespace

ReportQueries::ReportQueries(std::function<std::uint64_t()> deadline)
    : m_window(window_of_connections()), m_deadline(std::move(deadline))
{
}

std::unique_ptr<ReportExchange> ReportQueries::ask(std::string path)
{
    while (m_open.size() >= m_window)
        proceed();
    auto exchange = std::make_unique<ReportExchange>(std::move(path), m_deadline());
    m_open.push_back(exchange.get());
    close_ended();
    return exchange;
}

void ReportQueries::finish(const ReportExchange& exchange)
{
    while (!exchange.has_ended())
        proceed();
}

void ReportQueries::proceed()
{
    proceed_with_any(m_open);
    close_ended();
}

void ReportQueries::close_ended()
{
    std::erase_if(m_open, [](ReportExchange* exchange) {
        if (exchange->has_ended())
            exchange->release_connection();
        return exchange->has_ended();
    });
}
