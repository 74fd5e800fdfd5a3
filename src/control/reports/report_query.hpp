// Asking running items for their live status over their sockets.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "control/reports/report_exchange.hpp"
#include "settings/infolist_item.hpp"

// Sends "report" to the item at the socket `path` and merges the reply into the list: what the item
// reports replaces what the list held under the same key. 1 when a reply was merged, 0 when none came,
// -1 when connecting failed after the item's time had run out.
//
// The connection stays open for a further query of the same item; a null path closes it.
int do_list_send_command(const char* path, InfoList& list);

// The same for many items at once: each is asked as soon as it can be, and its reply kept until it is wanted.
class ReportQueries {
public:
    ReportQueries();

    // Begins to ask the item at the socket. While as many connections are open as may be, it waits for the
    // end of others first.
    std::unique_ptr<ReportExchange> ask(std::string path);

    // Waits for the item's reply and merges it; returns what do_list_send_command does.
    int merge_reply(InfoList& list, ReportExchange& exchange);

private:
    void proceed();
    void close_ended();

    std::vector<ReportExchange*> m_open;
    std::size_t m_window;
};
