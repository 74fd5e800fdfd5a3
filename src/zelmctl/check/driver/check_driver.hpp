// Whether a driver does what zelm-packets(5) asks of it.
#pragma once

#include "zelmctl/status.hpp"

// What stands behind "zelmctl check driver", whose last word is argv[0]. TROUBLE, which has been said, if the
// driver couldn't be tried.
Status check_driver(int argc, char** argv);
