// What drivers report beside their settings: what a real one would say of the device or stream that it
// runs. A new driver's status is a few rows more in the table.
#pragma once

#include <string>
#include <vector>

#include "driver_state.hpp"

struct StatusEntry {
    std::string key;
    std::string value;  // its lines are parted by line feeds
};

std::vector<StatusEntry> driver_status(const DriverState& state);
