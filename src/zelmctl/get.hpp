// The subcommand "get": every item by kind and name, with the document of its own driver.
#pragma once

#include "zelmctl/options.hpp"

extern const Subcommand GET;
