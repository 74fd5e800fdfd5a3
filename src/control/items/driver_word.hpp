// What a start has to know of an item's settings file, read line by line and without its other settings.
#pragma once

#include <optional>
#include <string>

#include "control/items/role.hpp"

// The driver that a settings file names.
struct DriverWord {
    std::string word;                           // empty if it names none
    std::optional<std::string> unknown_marker;  // what the first line of an input's file says instead
};

// The driver word of an open settings file: its last "driver=" line, or the marker in its first line, as the
// role has it; none for a channel. A read error ends the file.
DriverWord read_driver(int file, const Role& role);

// The flag "autorestart" of an open settings file.
bool read_autorestart(int file);
