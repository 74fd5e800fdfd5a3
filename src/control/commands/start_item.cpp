#include "control/commands/start_item.hpp"

#include <cassert>
#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

#include "control/commands/drivers_of_run.hpp"
#include "control/commands/items_of_run.hpp"
#include "control/items/output_drivers.hpp"
#include "control/processes/debug_output.hpp"
#include "control/processes/supervision.hpp"
#include "control/run_state.hpp"

namespace {

// Gives the child its standard descriptors. From the end of this on, what it says goes to the debug file
// or to nowhere.
void redirect_streams(const std::string& debug_path, const struct stat& settings)
{
    Descriptor output(open_null());
    make_standard(output.get(), STDIN_FILENO);
    if (debug_logging) {
        output = open_debug_output(debug_path, settings);
        if (!output) {
            std::fprintf(stderr_write, "Warning: I was unable to open debug output %s\n", debug_path.c_str());
            output.reset(open_null());
        }
    }
    make_standard(output.get(), STDOUT_FILENO);
    make_standard(output.get(), STDERR_FILENO);
}

[[noreturn]] void run_driver(
    const Arguments& arguments, const std::string& file_path, const std::string& debug_path)
{
    struct stat settings {};
    if (::lstat(file_path.c_str(), &settings) != 0) {
        std::fprintf(stderr_write, "Unable to stat %s\n", file_path.c_str());
        ::_exit(1);
    }
    ::setsid();
    redirect_streams(debug_path, settings);
    if (const char* call = become_owner(settings)) {
        std::fprintf(stderr_write, "%s() failed, %s\n", call, std::strerror(errno));
        ::_exit(1);
    }
    keep_standard_descriptors_only();
    execute(arguments);
}

int complain_of_fork()
{
    std::fprintf(stderr_write, "fork failed\n");
    return -1;
}

// 0 when the processes were forked, -1 when a fork failed.
int start_driver(const std::string& driver, const std::string& item, StartedProcess& started)
{
    const Role& role = role_of_run();
    bool autorestart = false;
    read_driver_daemonize(item, autorestart);
    const bool supervised = use_daemon || autorestart;
    const std::string file_path = settings_path(item);
    const std::string debug_path = debug_output_path(role, driver, item);
    if (debug_logging)
        make_debug_directory();

    const Arguments driver_process{"/usr/bin/" + driver_program(role, driver), "--file", file_path};
    const pid_t child = ::fork();
    if (child < 0)
        return complain_of_fork();
    if (child == 0)
        run_driver(supervised ? supervise(driver_name_switch(role, item), driver_process) : driver_process,
            file_path, debug_path);
    started = {child, supervised};
    if (!supervised)
        return 0;

    assert(file_path.empty() == false);
    const Arguments watchdog{"tavorn-comm-watchdog", file_path};
    return fork_quietly(supervise(watchdog_name_switch(role, item), watchdog)) ? 0 : complain_of_fork();
}

bool passes_x11_filter(const std::string& driver)
{
    if (role_of_run().kind != ItemKind::OUTPUT || x11_conflict_resolution < 0)
        return true;
    return x11_conflict_resolution == 0 ? is_console_output(driver) : is_x11_output(driver);
}

}  // namespace

int do_start_item(const std::string& item)
{
    StartedProcess started;
    return start_item(item, started);
}

int start_item(const std::string& item, StartedProcess& started)
{
    std::string driver;
    if (role_of_run().driver_source != DriverSource::NOTHING && !read_driver_word_or_complain(item, driver))
        return 1;
    if (!passes_x11_filter(driver))
        return 0;
    const bool runs = is_item_running(item, nullptr) != 0;
    if ((!runs || force) && start_driver(driver, item, started) != 0) {
        std::fprintf(stderr_write, "Unable to start driver %s\n", driver.c_str());
        return 1;
    }
    return 0;
}
