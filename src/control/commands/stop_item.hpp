// Stopping an item: the respawn manager lets go of it, then the driver is asked to end.
#pragma once

#include <string>

// 0 on success, when the wait ran out, and when there is nothing to do; 1 when the settings can't be read
// or the driver can't be signalled; -1 when a fork failed.
int do_stop_item(const std::string& item);
