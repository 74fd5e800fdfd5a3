// The companion of the tools that says what they pass over in silence.
#pragma once

// Its exit status: 0 when there is nothing to find, 1 when something was found, 2 for a wrong command line
// and for what can't be read or written.
int zelm_check(int argc, char** argv);
