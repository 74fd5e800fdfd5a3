#include "control/run_state.hpp"

#include <cstdlib>

#include "platform/time.hpp"

int exec_mode = 0;

std::string command;
std::string to_what;
std::string to_arg;
std::string var_type;
std::string json_consume_driver;

bool force = false;
bool verbose = false;
bool debug_logging = false;
bool use_daemon = false;
bool stop_only_item = false;
bool kill_timeout_enable = false;
bool no_manifest = false;
bool quicksummary = false;
bool except_quicksummary = false;
bool show_description = false;
bool name_only = false;
bool wants_json = false;

int per_item_timeout = 15;
std::uint64_t run_timeout = 0;
std::uint64_t next_timeout = 0;
int x11_conflict_resolution = -1;

std::string mode_list_path;
Directory itemdir;
std::vector<std::string> itemlist;

std::FILE* stdout_write = stdout;
std::FILE* stderr_write = stderr;

const char* const NO_OUTPUT_SPECIFIED_MESSAGE = "You must specify an output\n";

const Role& role_of_run()
{
    if (const Role* role = find_role(exec_mode))
        return *role;
    std::abort();
}

void reset_timeout()
{
    next_timeout = run_timeout;
    if (run_timeout == 0 && per_item_timeout > 0)
        next_timeout = monotonic_clock_us() + static_cast<std::uint64_t>(per_item_timeout) * 1000000;
}
