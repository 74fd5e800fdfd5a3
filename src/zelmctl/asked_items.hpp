// The items that a command line names, how they run, and what their drivers report: all are asked at once.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "control/processes/driver_look.hpp"
#include "control/reports/report_exchange.hpp"
#include "settings/infolist_item.hpp"
#include "zelmctl/options.hpp"

struct AskedItem {
    ItemId id;
    RunningDriver process;
    std::string driver{};                      // its word, which is "channel" of a channel
    InfoList settings{};                       // as the file holds them
    bool has_settings = false;                 // whether that could be read
    std::string error{};                       // what could not be looked at
    std::unique_ptr<ReportExchange> report{};  // of one that runs

    void add_error(const std::string& what) { error += (error.empty() ? "" : "; ") + what; }
    bool runs() const { return process.pid != 0; }
    bool has_answered() const { return report && report->outcome() == ReportOutcome::REPLIED; }
};

// Calls tell(item) for each, in their order, once its driver has answered or the time is up. What is missing
// and what could not be looked at has been said; that is the status.
Status ask_items(const Options& options, const std::function<void(AskedItem&)>& tell);
