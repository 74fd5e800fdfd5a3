#include "control/stop_item.hpp"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <unistd.h>

#include "control/output_driver.hpp"
#include "control/run_state.hpp"
#include "control/running_state.hpp"
#include "control/supervision.hpp"
#include "platform/time.hpp"

namespace {

constexpr useconds_t POLL_INTERVAL_US = 100000;

// The mirror of the filter of a start: what conflicts with X11 going up or down is stopped.
bool passes_x11_filter(const std::string& driver)
{
    if (exec_mode != MODE_OUTPUTS || x11_conflict_resolution < 0)
        return true;
    return x11_conflict_resolution == 0 ? is_x11_output(driver) : is_console_output(driver);
}

// Whether the process ended within the item's time.
bool wait_for_end(pid_t pid)
{
    reset_timeout();
    while (::kill(pid, 0) == 0) {
        if (per_item_timeout > 0 && monotonic_clock_us() >= next_timeout)
            return false;
        ::usleep(POLL_INTERVAL_US);
    }
    return true;
}

int end_driver(pid_t pid, const std::string& driver)
{
    if (::kill(pid, 0) != 0) {
        std::fprintf(stderr_write, "Driver not running %s, %s\n", driver.c_str(), std::strerror(errno));
        return 0;
    }
    if (::kill(pid, SIGTERM) != 0) {
        std::fprintf(stderr_write, "Unable to stop driver %s, %s\n", driver.c_str(), std::strerror(errno));
        return 1;
    }
    if (!wait_for_end(pid) && kill_timeout_enable)
        ::kill(pid, SIGKILL);
    return 0;
}

}  // namespace

int do_stop_item(const std::string& item)
{
    std::string driver;
    if (exec_mode == MODE_OUTPUTS && !read_driver_word(item, driver))
        return 1;
    if (!passes_x11_filter(driver))
        return 0;
    // The manager first, so that it doesn't bring back the driver that ends next.
    if (!stop_only_item && !(fork_quietly(release_supervision(driver_name_switch(item))) &&
                               fork_quietly(release_supervision(watchdog_name_switch(item)))))
        return -1;
    pid_t pid = 0;
    if (is_item_running(item, &pid) == 0 && !force)
        return 0;
    if (pid == 0 || pid == -1) {
        std::fprintf(stderr_write, "Did not identify PID of the driver\n");
        return 0;
    }
    return end_driver(pid, driver);
}
