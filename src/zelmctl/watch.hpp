// The subcommand "watch".
#pragma once

#include "zelmctl/options.hpp"

extern const Subcommand WATCH;
