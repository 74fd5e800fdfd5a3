// What drivers report beside their settings. A new driver's status is a few rows more in the table.
#pragma once

#include <span>
#include <string_view>

struct DriverStatus {
    std::string_view driver;  // the driver word; "channel" for channels, empty for every driver
    char letter;              // the type letter of the entry, mostly "*"
    std::string_view key;
    std::string_view value;       // its lines are parted by line feeds; empty: that of the setting `needs`
    std::string_view needs = {};  // the row counts only for an item that has this setting
};

std::span<const DriverStatus> driver_status();
