#include "platform/time.hpp"

#include <ctime>

std::uint64_t monotonic_clock_us()
{
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * 1000000 + static_cast<std::uint64_t>(now.tv_nsec) / 1000;
}
