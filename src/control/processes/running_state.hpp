// Whether an item runs, and as which process: only what the kernel shows decides. A running driver holds
// a listening socket bound at a fixed path in the item's metadir. The socket's row in the kernel's table
// of Unix sockets gives its inode, and the process that holds that inode is the driver.
#pragma once

#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

// The process that serves an item, and the inode of the socket by which it was found; 0 for one that doesn't
// run.
struct RunningDriver {
    pid_t pid = 0;
    unsigned int socket = 0;
};
RunningDriver running_driver(const std::string& item);

// Whether the process still holds that socket: asked anew each time.
bool still_serves(const RunningDriver& driver);

// 1 when the item runs, else 0. `pid` may be null; otherwise it gets the driver's process id, or 0. The
// first call of a run takes the tables of sockets and processes, and all later calls judge by them.
int is_item_running(const std::string& item, pid_t* pid);

// The driver's process id of each of the items, 0 for one that doesn't run, all decided at one moment.
std::vector<pid_t> running_processes(const std::vector<std::string>& items);

// The socket of an item that has this metadir.
std::string active_socket_path(const std::string& metadir);

// Reads how long the kernel has been up, for the calls of process_uptime that follow.
void read_kernel_uptime();

// Seconds since the process started: 0 if that can't be read, and none when there is no such process.
std::optional<double> process_uptime(pid_t pid);
