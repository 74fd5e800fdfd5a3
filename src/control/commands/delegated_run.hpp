// Commands on behalf of another program than the four tools, whose command line says what they are to do.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "control/items/role.hpp"

struct DelegatedRun {
    const Role& role;
    bool supervised;            // what is started
    bool kill;                  // what does not end in time
    std::uint64_t deadline_us;  // for all of it, on the clock of monotonic_clock_us()
};

// Makes that the run of this process, for these items, and looks now which of them run. do_start_item and
// do_stop_item can then be called for each, here or in a child.
void begin_delegated_run(const DelegatedRun& run, std::vector<std::string> items);

// Has all that the commands say go to the stream.
void say_to(std::FILE* stream);
