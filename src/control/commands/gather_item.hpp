// What a listing tells of an item beside its settings, in the order in which it is added to them:
// add_unasked(); of an item that runs its report; of a channel add_file_types().
#pragma once

#include <optional>
#include <sys/types.h>

#include "control/items/manifests.hpp"
#include "control/items/role.hpp"
#include "control/processes/uptime.hpp"
#include "settings/infolist_item.hpp"

// What the items of a listing have in common.
struct Gathering {
    KernelClock clock;
    Manifests* manifests = nullptr;  // must outlive the lists; null for a listing without them
    bool has_item_time = true;
};

// Adds all that is known without asking the item: what its driver's manifest says, how its process is, and
// the time of the file that it plays. The process is 0 when it doesn't run. Returns for how many seconds it
// has been running, if it is.
std::optional<double> add_unasked(
    InfoList& list, const Role& role, pid_t process, const Gathering& gathering);

// The types of the media in the regions of a channel.
void add_file_types(InfoList& list);
