// The subcommand "explain": says what the members of a driver's document are.
#pragma once

#include "zelmctl/options.hpp"

extern const Subcommand EXPLAIN;
