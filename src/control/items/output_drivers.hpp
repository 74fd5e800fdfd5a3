// The drivers that outputs may have.
#pragma once

#include <string>

bool is_valid_output_driver(const std::string& driver);

// The X11 conflict filter of outputs: which side of the conflict an output is on.
bool is_x11_output(const std::string& driver);
bool is_console_output(const std::string& driver);
