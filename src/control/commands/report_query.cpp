#include "control/commands/report_query.hpp"

#include "control/reports/merge_report.hpp"
#include "control/reports/report_connection.hpp"
#include "control/run_state.hpp"

namespace {

ReportConnection item_connection;

void progress(const char* format, const std::string& path = {})
{
    if (verbose)
        std::fprintf(stderr_write, format, path.c_str());
}

void warn_of(const OddEntry& entry)
{
    const std::string name(entry.name);
    if (entry.type == 0)
        std::fprintf(stderr_write, "Problem reading\n");
    else if (entry.type == '>')
        std::fprintf(stderr_write,
            "WARNING: media item report function returns page '%s'. Pages are unsupported.\n", name.c_str());
    else
        std::fprintf(stderr_write,
            "WARNING: media item report function returns item that is not status (type '%c') '%s'\n",
            entry.type, name.c_str());
}

}  // namespace

int merge_reply(InfoList& list, const ReportExchange& exchange)
{
    if (exchange.outcome() == ReportOutcome::CONNECT_TIMED_OUT)
        return -1;
    if (exchange.outcome() != ReportOutcome::REPLIED)
        return 0;
    const auto odd = merge_report(list, exchange.reply());
    if (!odd) {
        std::fprintf(
            stderr_write, "WARNING: the report at %s is too large for a listing\n", exchange.path().c_str());
        return 0;
    }
    for (const OddEntry& entry : *odd)
        warn_of(entry);
    return 1;
}

int do_list_send_command(const char* path, InfoList& list)
{
    const bool is_open = item_connection.leads_to(path);
    std::optional<ReportExchange> exchange = item_connection.begin(path, report_deadline(per_item_timeout));
    if (!exchange)
        return 0;
    if (exchange->outcome() != ReportOutcome::NO_SOCKET)
        progress(is_open ? "Re-using connection to %s\n" : "Connecting to %s\n", path);
    proceed_to_end(*exchange);
    item_connection.keep(*exchange);
    const bool is_late = exchange->outcome() == ReportOutcome::CONNECT_TIMED_OUT;
    if (is_late || exchange->outcome() == ReportOutcome::CONNECT_FAILED)
        progress("Connection failed\n");
    if (is_late)
        progress("Timeout\n");
    return merge_reply(list, *exchange);
}

void close_report_connection()
{
    item_connection.close();
}
