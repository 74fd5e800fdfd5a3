#include "zelmctl/act.hpp"

#include <algorithm>

#include "zelmctl/action.hpp"
#include "zelmctl/found_items.hpp"

namespace {

constexpr char START_HELP[] =
    R"(usage: zelmctl start [--autostart] [--json] [--supervised] [--timeout S] ITEM...

Starts the items at once, kind after kind, and waits until they run. ITEM is like output/main, a kind alone for all of
it, or all.

  --autostart   only those of them that start at boot
  --json        print one JSON object instead of a line an item
  --supervised  under the respawn manager
  --timeout S   wait so many seconds at most, 15 unless told

Exit status: 0 all run, 1 not all, 2 trouble.
)";

constexpr char STOP_HELP[] = R"(usage: zelmctl stop [--json] [--kill] [--timeout S] ITEM...

Stops the items at once, kind after kind, and waits until they have ended. ITEM is like output/main, a kind alone for
all of it, or all.

  --json       print one JSON object instead of a line an item
  --kill       kill those that don't end in time
  --timeout S  wait so many seconds at most, 15 unless told

Exit status: 0 none runs, 1 some do, 2 trouble.
)";

constexpr char RESTART_HELP[] =
    R"(usage: zelmctl restart [--autostart] [--json] [--kill] [--supervised] [--timeout S] ITEM...

Stops the items as "stop" does, and then starts them as "start" does.

  --autostart   only those of them that start at boot
  --json        print one JSON object instead of a line an item
  --kill        kill those that don't end in time
  --supervised  start them under the respawn manager
  --timeout S   wait so many seconds at most for all of that, 15 unless told

Exit status: 0 all run anew, 1 not all, 2 trouble.
)";

Status act_on_items(const Options& options, std::initializer_list<Act> acts)
{
    FoundItems found = find_items(options.items);
    const std::vector<ItemId> missing = missing_items(options.items, found.items);
    if (options.autostart)
        std::erase_if(found.items, [](const ItemId& item) { return !has_autostart(item); });
    std::vector<ActedItem> items;
    for (const ItemId& item : found.items)
        items.push_back({item, options.supervised});
    Outcomes outcomes(options.json, options.timeout_us);
    for (const ItemId& item : missing)
        outcomes.tell(item, absent(*(acts.end() - 1)));
    const std::string fault = act_on(items, acts, {options.deadline_us(), options.kill},
        [&](const ItemId& item, const Outcome& outcome) { outcomes.tell(item, outcome); });
    const Status status = std::max(found.status, outcomes.finish());
    return fault.empty() ? status : complain(fault);
}

Status start_items(const Options& options)
{
    return act_on_items(options, {Act::UP});
}

Status stop_items(const Options& options)
{
    return act_on_items(options, {Act::DOWN});
}

Status restart_items(const Options& options)
{
    return act_on_items(options, {Act::DOWN, Act::UP});
}

}  // namespace

const Subcommand START_ITEMS{
    "start", "--autostart --json --supervised --timeout", Items::NAMED, START_HELP, start_items};
const Subcommand STOP_ITEMS{"stop", "--json --kill --timeout", Items::NAMED, STOP_HELP, stop_items};
const Subcommand RESTART_ITEMS{
    "restart", "--autostart --json --kill --supervised --timeout", Items::NAMED, RESTART_HELP, restart_items};
