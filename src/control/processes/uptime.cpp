#include "control/processes/uptime.hpp"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "control/processes/process_status.hpp"

namespace {

constexpr int START_TIME = 22;  // in clock ticks since the kernel came up

double seconds_by(clockid_t clock)
{
    timespec now{};
    ::clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

}  // namespace

KernelClock read_kernel_uptime()
{
    KernelClock clock;
    clock.m_ticks = ::sysconf(_SC_CLK_TCK);
    if (const auto text = read_start("/proc/uptime", 256))
        clock.m_uptime = static_cast<std::uint64_t>(
            std::strtod(text->c_str(), nullptr) * static_cast<double>(clock.m_ticks));
    return clock;
}

std::optional<double> KernelClock::uptime_of(pid_t process) const
{
    const std::string path = "/proc/" + std::to_string(process) + "/stat";
    struct stat state {};
    if (::lstat(path.c_str(), &state) != 0 || !S_ISREG(state.st_mode))
        return {};
    const auto start = status_number(process, START_TIME, NameEnd::FIRST);
    if (!start)
        return 0.0;
    const auto ticks = static_cast<long long>(m_uptime) - *start;
    return static_cast<double>(std::max(ticks, 0LL)) / static_cast<double>(m_ticks);
}

std::optional<double> start_time_of(pid_t process)
{
    const auto start = status_number(process, START_TIME, NameEnd::LAST);
    if (!start)
        return {};
    const double boot = seconds_by(CLOCK_REALTIME) - seconds_by(CLOCK_BOOTTIME);
    return boot + static_cast<double>(*start) / static_cast<double>(::sysconf(_SC_CLK_TCK));
}
