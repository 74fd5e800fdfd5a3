// What a driver knows about itself while it runs.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "item_settings.hpp"

struct DriverState {
    std::string driver;        // the driver word, "channel" for a channel
    ItemSettings settings;     // as read at the start, and as set since then
    std::string last_command;  // the last live command, as "key=value"
    std::uint64_t started_us = 0;
    std::uint64_t reports = 0;  // answered so far
    std::vector<std::string> leaked;
};
