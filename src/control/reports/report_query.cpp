#include "control/reports/report_query.hpp"

#include <algorithm>
#include <sys/resource.h>

#include "control/reports/merge_report.hpp"

namespace {

constexpr rlim_t LARGEST_WINDOW = 512;
constexpr rlim_t SPARE_DESCRIPTORS = 4;  // for settings files and directories, where there are few in all

CommSocket connection;
std::string connection_path;

std::size_t window_of_connections()
{
    rlimit limit{};
    ::getrlimit(RLIMIT_NOFILE, &limit);
    return std::clamp(limit.rlim_cur / 2, SPARE_DESCRIPTORS + 1, SPARE_DESCRIPTORS + LARGEST_WINDOW) -
           SPARE_DESCRIPTORS;
}

int merge(InfoList& list, const ReportExchange& exchange)
{
    if (exchange.result() == 1 && !merge_report(list, exchange.reply(), exchange.path().c_str()))
        return 0;
    return exchange.result();
}

}  // namespace

int do_list_send_command(const char* path, InfoList& list)
{
    if (!path || connection_path != path)
        connection.reset();
    if (!path)
        return 0;
    connection_path = path;
    ReportExchange exchange(path, std::move(connection));
    ReportExchange* const exchanges[] = {&exchange};
    while (!exchange.has_ended())
        proceed_with_any(exchanges);
    connection = exchange.release_connection();
    return merge(list, exchange);
}

ReportQueries::ReportQueries() : m_window(window_of_connections()) {}

std::unique_ptr<ReportExchange> ReportQueries::ask(std::string path)
{
    while (m_open.size() >= m_window)
        proceed();
    auto exchange = std::make_unique<ReportExchange>(std::move(path));
    m_open.push_back(exchange.get());
    close_ended();
    return exchange;
}

int ReportQueries::merge_reply(InfoList& list, ReportExchange& exchange)
{
    while (!exchange.has_ended())
        proceed();
    return merge(list, exchange);
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
