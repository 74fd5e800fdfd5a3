// The subcommand "save": what the appliance has stored, as one file.
#pragma once

#include "zelmctl/options.hpp"

extern const Subcommand SAVE;
