// The subcommands "plan" and "apply": what has to be done so that the appliance is as a file says, and doing
// it.
#pragma once

#include "zelmctl/options.hpp"

extern const Subcommand PLAN;
extern const Subcommand APPLY;
