// The connection to an item that is asked for its report more than once.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "control/reports/report_exchange.hpp"

class ReportConnection {
public:
    bool leads_to(const std::string& path) const { return m_connection && m_path == path; }

    // Begins an exchange with the item at the socket, over the connection if it leads there. None while the
    // socket is held off: for a second after a connect that came to nothing, and for eleven after one that
    // failed.
    std::optional<ReportExchange> begin(const std::string& path, std::uint64_t deadline_us);

    // Takes the connection back from an exchange that has ended.
    void keep(ReportExchange& exchange);

    void close() { m_connection.reset(); }

private:
    CommSocket m_connection;
    std::string m_path;                               // of the connection
    std::map<std::string, std::uint64_t> m_held_off;  // until when, for each socket
};
