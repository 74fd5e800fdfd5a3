// The companion of the four tools, which acts on the whole appliance.
#pragma once

// The whole run. The result is the exit status, as status.hpp has them.
int zelmctl(int argc, char** argv);
