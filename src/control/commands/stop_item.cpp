#include "control/commands/stop_item.hpp"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

#include "control/commands/drivers_of_run.hpp"
#include "control/commands/items_of_run.hpp"
#include "control/items/output_drivers.hpp"
#include "control/processes/held_process.hpp"
#include "control/processes/supervision.hpp"
#include "control/run_state.hpp"
#include "platform/time.hpp"

namespace {

constexpr std::uint64_t SUPERVISOR_LIMIT_US = 500000;

// The mirror of the filter of a start: what conflicts with X11 going up or down is stopped.
bool is_stopped_for_x11(const std::string& driver)
{
    if (role_of_run().kind != ItemKind::OUTPUT || x11_conflict_resolution < 0)
        return true;
    return x11_conflict_resolution == 0 ? is_x11_output(driver) : is_console_output(driver);
}

// Has the manager let go of the driver, as its owner, under whom it was started, and of the watchdog. False
// when a fork failed.
bool release(const std::string& item)
{
    const Role& role = role_of_run();
    struct stat settings {};
    const bool has_owner = ::geteuid() == 0 && ::lstat(settings_path(item).c_str(), &settings) == 0;
    return fork_quietly(
               release_supervision(driver_name_switch(role, item)), has_owner ? &settings : nullptr) &&
           fork_quietly(release_supervision(watchdog_name_switch(role, item)));
}

int end_driver(const HeldProcess& process, const std::string& driver)
{
    if (process.signal(SIGTERM) != 0) {
        std::fprintf(stderr_write, "Unable to stop driver %s, %s\n", driver.c_str(), std::strerror(errno));
        return 1;
    }
    reset_timeout();
    if (!process.ends_by(next_timeout) && kill_timeout_enable)
        process.signal(SIGKILL);
    return 0;
}

// The manager hands the signal on to the driver when it hears that it is to let go, and ends when the driver
// has. If the driver ended before it has heard, it would bring the driver back; and while it is there, nobody
// can start the item under its name.
int end_supervised_driver(
    const HeldProcess& process, const Supervisors& supervisors, const std::string& driver)
{
    const std::uint64_t heard_by = monotonic_clock_us() + SUPERVISOR_LIMIT_US;
    for (const HeldProcess* supervisor : {&supervisors.driver, &supervisors.watchdog})
        if (!supervisor->ends_by(heard_by))
            supervisor->signal(SIGTERM);
    const int result = process.signal(0) == 0 ? end_driver(process, driver) : 0;
    if (!process.ends_by(monotonic_clock_us()) && !kill_timeout_enable)
        return result;
    const std::uint64_t gone_by = monotonic_clock_us() + SUPERVISOR_LIMIT_US;
    for (const HeldProcess* supervisor : {&supervisors.driver, &supervisors.watchdog})
        supervisor->ends_by(gone_by);
    return result;
}

}  // namespace

int do_stop_item(const std::string& item)
{
    std::string driver;
    if (role_of_run().kind == ItemKind::OUTPUT && !read_driver_word_or_complain(item, driver))
        return 1;
    if (!is_stopped_for_x11(driver))
        return 0;
    const RunningDriver running = running_driver(item);
    const HeldProcess process = hold(running);
    const int refusal = process.signal(0) != 0 ? errno : 0;
    const Supervisors supervisors =
        stop_only_item ? Supervisors() : supervisors_of(role_of_run(), item, running.pid);
    if (!stop_only_item && !release(item)) {
        std::fprintf(stderr_write, "fork failed\n");
        return -1;
    }
    if (running.pid == 0) {
        if (force)
            std::fprintf(stderr_write, "Did not identify PID of the driver\n");
        return 0;
    }
    if (refusal != 0) {
        std::fprintf(stderr_write, "Driver not running %s, %s\n", driver.c_str(), std::strerror(refusal));
        return 0;
    }
    return supervisors.driver ? end_supervised_driver(process, supervisors, driver)
                              : end_driver(process, driver);
}
