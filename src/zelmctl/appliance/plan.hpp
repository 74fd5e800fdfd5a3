// What has to be done so that the appliance is as a file wants it.
#pragma once

#include <json11.hpp>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "zelmctl/action.hpp"
#include "zelmctl/appliance/appliance_file.hpp"
#include "zelmctl/options.hpp"

struct Step {
    enum class Do : std::uint8_t { CREATE, SET, REMOVE, START, STOP, RESTART, DELETE };
    Do what;
    std::string key{};                  // of SET and REMOVE,
    std::optional<std::string> from{};  // and what is stored, if anything is,
    std::optional<std::string> to{};    // and what is to be
    std::string why{};                  // of RESTART

    bool is_done = false;
    std::string error{};  // why it could not be done
};

// All steps of an item.
struct PlannedItem {
    ItemId id;
    const InputType* type = nullptr;  // of an input that is created
    bool runs = false;                // now
    bool supervised = false;          // what is started
    std::vector<Step> changes{};      // CREATE and what is SET, or SET and REMOVE, or DELETE: all in one
    std::optional<Step> act{};        // START, STOP or RESTART

    bool is_deleted() const { return !changes.empty() && changes.front().what == Step::Do::DELETE; }
    bool is_stopped() const { return act && act->what != Step::Do::START; }  // before it changes
    bool is_started() const { return act && act->what != Step::Do::STOP; }   // behind that
    bool is_started_anew() const { return is_stopped() && is_started(); }
};

// The items that have steps.
using Plan = std::vector<PlannedItem>;

// Looks at what is stored and runs, and changes nothing. What the file wants and can't be is a finding; what
// could not be looked at has been said, and is the status.
Status make_plan(const WantedAppliance& wanted, bool exact, bool prune, Plan& plan, Findings& findings);

// Those that change in each part of the work, kind after kind: first those that needn't be stopped for it;
// and when items have stopped, those that were and those that go.
std::vector<PlannedItem*> changed_first(Plan& plan);
std::vector<PlannedItem*> changed_when_stopped(Plan& plan);

// All steps in the order in which they are done.
using PlannedStep = std::pair<const PlannedItem*, const Step*>;
std::vector<PlannedStep> steps_of(Plan& plan);

// "output/monitor: restart, its driver changes", and the same as JSON. What is secret is not told.
std::string line_of(const PlannedItem& item, const Step& step);
json11::Json::object as_json(const PlannedItem& item, const Step& step);
