// Whether the items of the run's role run, asked by their names. What the first question of a run finds holds
// for all of it, so that a restart judges by the look of its stop.
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

#include "control/processes/driver_look.hpp"

// Looks at the drivers of itemlist now: what is asked from here on is answered by that look.
void look_at_drivers();

// The driver of an item. An item whose settings can't be found, which is said, has none.
RunningDriver running_driver(const std::string& item);

// 1 when the item runs, else 0. `pid` may be null; otherwise it gets the driver's process id, or 0.
int is_item_running(const std::string& item, pid_t* pid);

// The driver's process id of each of the items, 0 for one that doesn't run, all decided at one moment.
std::vector<pid_t> running_processes(const std::vector<std::string>& items);
