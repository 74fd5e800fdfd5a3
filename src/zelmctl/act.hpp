// The subcommands "start", "stop" and "restart": many items at once, kind after kind, until it is so.
#pragma once

#include "zelmctl/options.hpp"

extern const Subcommand START_ITEMS;
extern const Subcommand STOP_ITEMS;
extern const Subcommand RESTART_ITEMS;
