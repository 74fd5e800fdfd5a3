// The subcommand "metrics": how all items run, for Prometheus.
#pragma once

#include "zelmctl/options.hpp"

extern const Subcommand METRICS;
