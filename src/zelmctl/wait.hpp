// The subcommand "wait".
#pragma once

#include "zelmctl/options.hpp"

extern const Subcommand WAIT;
