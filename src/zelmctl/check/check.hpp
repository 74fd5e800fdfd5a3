// The subcommand "check": says what the tools pass over in silence.
#pragma once

#include "zelmctl/status.hpp"

// argv[0] is the subcommand. IS_SO when there is nothing to find, and IS_NOT_SO when something was found.
Status check(int argc, char** argv);
