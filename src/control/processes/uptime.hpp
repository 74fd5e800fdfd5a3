// How long processes have been running.
#pragma once

#include <cstdint>
#include <optional>
#include <sys/types.h>

// The kernel's clock as it was read once, for the uptimes of many processes.
class KernelClock {
public:
    // Seconds since the process started: 0 if that can't be read, and none when there is no such process.
    std::optional<double> uptime_of(pid_t process) const;

private:
    friend KernelClock read_kernel_uptime();

    std::uint64_t m_uptime = 0;  // in ticks
    std::int64_t m_ticks = 100;  // a second
};

KernelClock read_kernel_uptime();

// When the process started, in seconds since 1970; none when there is no such process.
std::optional<double> start_time_of(pid_t process);
