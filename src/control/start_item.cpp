#include "control/start_item.hpp"

#include <cassert>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include "control/items.hpp"
#include "control/output_driver.hpp"
#include "control/run_state.hpp"
#include "control/running_state.hpp"
#include "control/supervision.hpp"

namespace {

constexpr char DEBUG_DIRECTORY[] = "/mnt/main/tv/debug";

std::string driver_program(const std::string& driver)
{
    switch (exec_mode) {
    case MODE_CHANNELS: return "zelm_rendermgr";
    case MODE_OUTPUTS: return "zelm_out_" + driver;
    case MODE_INPUTS:
    case MODE_ROUTERS: return "zelm_" + driver;
    case MODE_UNKNOWN: break;
    }
    std::abort();
}

// Routers write theirs under the inputs' prefix.
std::string debug_output_path(const std::string& driver, const std::string& item)
{
    const std::string directory = std::string(DEBUG_DIRECTORY) + "/";
    switch (exec_mode) {
    case MODE_CHANNELS: return directory + item;
    case MODE_OUTPUTS: return directory + "output." + driver + "." + item;
    case MODE_INPUTS:
    case MODE_ROUTERS: return directory + "input." + driver + "." + item;
    case MODE_UNKNOWN: break;
    }
    std::abort();
}

// Gives the child its standard descriptors. From the end of this on, what it says goes to the debug file
// or to nowhere.
void redirect_streams(const std::string& debug_path)
{
    Descriptor output(open_null());
    make_standard(output.get(), STDIN_FILENO);
    if (debug_logging) {
        output.reset(::open(debug_path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644));
        if (!output) {
            std::fprintf(stderr_write, "Warning: I was unable to open debug output %s\n", debug_path.c_str());
            output.reset(open_null());
        }
    }
    make_standard(output.get(), STDOUT_FILENO);
    make_standard(output.get(), STDERR_FILENO);
}

[[noreturn]] void end_child(const char* call)
{
    std::fprintf(stderr_write, "%s() failed, %s\n", call, std::strerror(errno));
    ::_exit(1);
}

// The settings file's owner decides under whom a driver runs. Groups go first, while the process may
// still change them.
void become_owner(const struct stat& settings)
{
    if (::geteuid() == 0 && settings.st_uid != ::getuid() && ::setgroups(0, nullptr) != 0)
        end_child("setgroups");
    if (::setgid(settings.st_gid) != 0)
        end_child("setgid");
    if (::setuid(settings.st_uid) != 0)
        end_child("setuid");
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
    redirect_streams(debug_path);
    become_owner(settings);
    keep_standard_descriptors_only();
    execute(arguments);
}

// 0 when the processes were forked, -1 when a fork failed.
int start_driver(const std::string& driver, const std::string& item)
{
    bool autorestart = false;
    read_driver_daemonize(item, autorestart);
    const bool supervised = use_daemon || autorestart;
    const std::string file_path = settings_path(item);
    const std::string debug_path = debug_output_path(driver, item);
    if (debug_logging)
        ::mkdir(DEBUG_DIRECTORY, 0755);

    const Arguments driver_process{"/usr/bin/" + driver_program(driver), "--file", file_path};
    const pid_t child = fork_or_complain();
    if (child < 0)
        return -1;
    if (child == 0)
        run_driver(supervised ? supervise(driver_name_switch(item), driver_process) : driver_process,
            file_path, debug_path);
    if (!supervised)
        return 0;

    assert(file_path.empty() == false);
    const Arguments watchdog{"tavorn-comm-watchdog", file_path};
    return fork_quietly(supervise(watchdog_name_switch(item), watchdog)) ? 0 : -1;
}

bool passes_x11_filter(const std::string& driver)
{
    if (exec_mode != MODE_OUTPUTS || x11_conflict_resolution < 0)
        return true;
    return x11_conflict_resolution == 0 ? is_console_output(driver) : is_x11_output(driver);
}

}  // namespace

int do_start_item(const std::string& item)
{
    std::string driver;
    if (exec_mode != MODE_CHANNELS && !read_driver_word(item, driver))
        return 1;
    if (!passes_x11_filter(driver))
        return 0;
    const bool runs = is_item_running(item, nullptr) != 0;
    if ((!runs || force) && start_driver(driver, item) != 0) {
        std::fprintf(stderr_write, "Unable to start driver %s\n", driver.c_str());
        return 1;
    }
    return 0;
}
