// Work that starts programs of which nobody knows what they do.
#pragma once

#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

#include "zelmctl/status.hpp"

// Does the work in a process of its own, which is given a private directory. When that ends, or SIGINT,
// SIGTERM or SIGHUP comes, every process that came of it is killed, whoever's child it has become, and the
// directory is removed; a signal ends this process then. TROUBLE, which has been said, if it can't be done.
Status in_custody(const std::function<Status(const std::string& directory)>& work);

// The processes whose parent is this one. Those are all that came of its children once these have ended, as
// what loses its parent comes to whoever works in custody.
std::vector<pid_t> children();

// Kills this process's children, and what comes to it of them, for a few seconds at most.
void end_children();
