// The driver word of an item that is about to be started, stopped or asked for its status.
#pragma once

#include <string>

// Reads the driver word of an item, warning of an output's that is not known, which then counts as empty,
// and of an empty one. False when the settings can't be read, which has been said.
bool read_driver_word(const std::string& item, std::string& driver);

// The X11 conflict filter of outputs: which side of the conflict an output is on.
bool is_x11_output(const std::string& driver);
bool is_console_output(const std::string& driver);
