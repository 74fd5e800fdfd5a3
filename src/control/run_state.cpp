#include "control/run_state.hpp"
FILE* stderr_write = stderr;
