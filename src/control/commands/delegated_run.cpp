#include "control/commands/delegated_run.hpp"

#include "control/commands/drivers_of_run.hpp"
#include "control/commands/items_of_run.hpp"
#include "control/run_state.hpp"

void begin_delegated_run(const DelegatedRun& run, std::vector<std::string> items)
{
    exec_mode = number_of(run.role);
    set_mode_list_path();
    use_daemon = run.supervised;
    kill_timeout_enable = run.kill;
    run_timeout = run.deadline_us;
    itemlist = std::move(items);
    look_at_drivers();
}

void say_to(std::FILE* stream)
{
    stdout_write = stream;
    stderr_write = stream;
}
