// Whether items run, and as which processes: only what the kernel shows decides. A running driver holds a
// listening socket bound at a fixed path in the item's metadir. The socket's row in the kernel's table of
// Unix sockets gives its inode, and the process that holds that inode is the driver.
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

#include "control/processes/driver_users.hpp"
#include "control/processes/held_process.hpp"
#include "control/processes/socket_diagnosis.hpp"
#include "control/processes/socket_table.hpp"

// The process that serves an item, and the inode of the socket by which it was found; 0 for one that doesn't
// run.
struct RunningDriver {
    pid_t pid = 0;
    unsigned int socket = 0;
    bool is_hidden = false;  // somebody holds the item's socket whom the caller may not see
    DriverUsers users{};
};

// Takes hold of the driver, if the process still serves the item. None otherwise.
HeldProcess hold(const RunningDriver& driver);

// One look at the processes, which takes about as long for a thousand items as for one.
class DriverLook {
public:
    // Looks for the drivers of the items that have these metadirs, all at one moment; an empty one is that of
    // an item that has none. The table of sockets comes from a file of the form of /proc/net/unix.
    explicit DriverLook(const std::vector<std::string>& metadirs, const char* table = "/proc/net/unix");

    // What the table was like. Without one no item runs.
    const SocketTableHeader& header() const { return m_header; }

    // The drivers as they were found, in the order of the metadirs.
    std::vector<RunningDriver> drivers() const;

    // The driver that was found for the item with that metadir; none once the item's socket has gone.
    RunningDriver driver_of(const std::string& metadir) const;

private:
    // The socket of an item: what is there, and who was found to serve it.
    struct Item {
        std::string metadir;
        std::string socket{};  // where the entry leads; empty when that is no socket
        FileNumbers file{};
        bool has_kernel_numbers = false;
        RunningDriver driver{};
    };
    struct Row {
        Item* item;
        unsigned int inode;
    };

    static Item locate(const std::string& metadir);
    static bool confirm(Item& item, const BoundSocket* socket);
    std::vector<Row> rows_of_items(const ProcNetUnixSnapshot& table);
    void find_drivers(const ProcNetUnixSnapshot& table);
    bool locate_again();

    SocketTableHeader m_header;
    std::vector<Item> m_items;
};
