// Restarting an item: a stop, and a start that judges by what the stop has seen of the processes.
#pragma once

#include <string>

// What the start returns. An item whose socket is still there counts as running, and isn't started without
// --force.
int do_restart_item(const std::string& item);
