// The respawn manager /usr/bin/daemon: the names under which it knows an item's processes, and the
// argument vectors that the tool calls it with.
#pragma once

#include <string>

#include "control/items/role.hpp"
#include "control/processes/child_process.hpp"
#include "control/processes/held_process.hpp"

// The name switches of an item's driver and of its watchdog. Starting and stopping must agree on them.
std::string driver_name_switch(const Role& role, const std::string& item);
std::string watchdog_name_switch(const Role& role, const std::string& item);

// Put the process under supervision; let go of it.
Arguments supervise(const std::string& name_switch, const Arguments& process);
Arguments release_supervision(const std::string& name_switch);

// The manager's processes that watch over an item's driver and over its watchdog.
struct Supervisors {
    HeldProcess driver;  // none when nobody watches over the driver, and the other isn't looked for then
    HeldProcess watchdog;
};
Supervisors supervisors_of(const Role& role, const std::string& item, pid_t driver);
