// Asking many running items for their live status at once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "control/reports/report_exchange.hpp"

// Each item is asked as soon as it can be, and its reply kept until it is wanted.
class ReportQueries {
public:
    // `deadline` tells when the time of an item ends that is asked now, as report_deadline() does.
    explicit ReportQueries(std::function<std::uint64_t()> deadline);

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
    std::function<std::uint64_t()> m_deadline;
};

// Calls begin(item) for each of the items in their order, which may set its `report` to an exchange of the
// queries, and end(item) in that order too, as soon as its report and those in front have ended.
template <typename Item, typename Begin, typename End>
void ask_side_by_side(std::vector<Item>& items, ReportQueries& queries, const Begin& begin, const End& end)
{
    auto next = items.begin();
    const auto end_next = [&] {
        if (next->report)
            queries.finish(*next->report);
        end(*next);
        next->report.reset();
        ++next;
    };
    for (auto item = items.begin(); item != items.end(); ++item) {
        begin(*item);
        while (next <= item && (!next->report || next->report->has_ended()))
            end_next();
    }
    while (next != items.end())
        end_next();
}
