// Names that an object of a JSON text has twice: whoever parses the text sees the last of them alone.
#pragma once

#include <string_view>

#include "zelmctl/check/findings.hpp"

// Finds each in a text that the parser takes, by its path.
void find_repeated_names(std::string_view text, Findings& findings);
