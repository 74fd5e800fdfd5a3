// Which processes hold a socket.
#pragma once

#include <sys/types.h>
#include <vector>

#include "control/processes/driver_users.hpp"

// A socket whose holder is looked for.
struct SoughtSocket {
    unsigned int inode;
    bool decides;            // the search goes on until this one's holder is found
    DriverUsers users{};     // whose processes count
    pid_t holder = 0;        // of several that count the one with the highest id; 0 when none does
    pid_t other_holder = 0;  // the last one that was found not to count
};

// Walks a directory of the form of /proc, from the highest process down, and fills in the holders. It ends
// as soon as all sockets that decide have one, so that others may then lack theirs. Processes that don't
// let themselves be seen hold nothing.
void find_holders(const char* proc, std::vector<SoughtSocket>& sought);

// Whether that process, of a directory of that form, holds the socket.
bool holds_socket(const char* proc, pid_t pid, unsigned int inode);
