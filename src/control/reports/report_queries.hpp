// Asking many running items for their live status at once.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "control/reports/report_exchange.hpp"

// Each item is asked as soon as it can be, and its reply kept until it is wanted.
class ReportQueries {
public:
    // Each item has so many seconds from when it is asked, as report_deadline() takes them.
    explicit ReportQueries(int limit_s);

    // Begins to ask the item at the socket. While as many connections are open as may be, it waits for the
    // end of others first.
    std::unique_ptr<ReportExchange> ask(std::string path);

    // Waits until the exchange has ended.
    void finish(const ReportExchange& exchange);

private:
    void proceed();
    void close_ended();

    std::vector<ReportExchange*> m_open;
    std::size_t m_window;
    int m_limit_s;
};
