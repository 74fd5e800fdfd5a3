// Starting an item: its driver as a process of its own, directly or under the respawn manager with a
// watchdog beside it. The tool starts and leaves; it neither waits nor checks that the driver came up.
#pragma once

#include <string>
#include <sys/types.h>

// Starts the item unless it runs or the X11 conflict filter leaves it out. 0, also when there was nothing
// to do; 1 when the settings can't be read or a fork failed.
int do_start_item(const std::string& item);

// The child that was forked for a driver: the driver itself, or a supervisor that goes on in the background
// and ends well when it can.
struct StartedProcess {
    pid_t pid = 0;  // 0 when none was
    bool is_supervisor = false;
};

// The same, and tells of the child.
int start_item(const std::string& item, StartedProcess& started);
