#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "control/processes/held_process.hpp"
#include "control/processes/process_status.hpp"
#include "platform/time.hpp"
#include "zelmctl/check/driver/custody.hpp"
#include "zelmctl/check/driver/faults.hpp"
#include "zelmctl/check/driver/limits.hpp"
#include "zelmctl/check/findings.hpp"

namespace {

constexpr useconds_t INTERVAL_OF_ENDS_US = 5000;
constexpr std::size_t NAME_SIZE = 64;

// One that has lost its parent and runs on.
pid_t left_over()
{
    while (::waitpid(-1, nullptr, WNOHANG) > 0) {
    }
    const std::vector<pid_t> left = children();
    return left.empty() ? 0 : left.front();
}

}  // namespace

// By a driver of its own, of which nothing is left from before.
std::string faults::ending(Trial& trial)
{
    trial.let_go_of_others();
    trial.do_away();
    DriverUnderTest& driver = trial.driver();
    const pid_t serves = driver.served_by();
    HeldProcess(serves != 0 ? serves : driver.pid()).signal(SIGTERM);
    return driver.ended_by(from_now(END_LIMIT_US))
               ? ""
               : "it runs on " + std::to_string(seconds_of(END_LIMIT_US)) +
                     " seconds after SIGTERM; \"stop\" gives up, or kills it";
}

std::string faults::entry_removed(Trial& trial)
{
    struct stat entry {};
    if (::lstat(trial.plain().item().entry.c_str(), &entry) != 0)
        return {};
    return "the entry is left behind; \"restart\" doesn't start the item again";
}

std::string faults::nothing_left(Trial&)
{
    const std::uint64_t limit = from_now(END_LIMIT_US);
    pid_t left = 0;
    while ((left = left_over()) != 0 && monotonic_clock_us() < limit)
        ::usleep(INTERVAL_OF_ENDS_US);
    if (left == 0)
        return {};
    std::string name = read_start("/proc/" + std::to_string(left) + "/comm", NAME_SIZE).value_or("");
    return "a process " + in_quotes(name.substr(0, name.find('\n'))) + " is left; nobody ends it";
}
