#include "platform/time.hpp"

#include <cerrno>
#include <ctime>

std::uint64_t monotonic_clock_us()
{
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * 1000000 + static_cast<std::uint64_t>(now.tv_nsec) / 1000;
}

int poll_until(std::span<pollfd> awaited, std::uint64_t deadline_us)
{
    const std::uint64_t now = monotonic_clock_us();
    const std::uint64_t left = deadline_us > now ? deadline_us - now : 0;
    timespec timeout{};
    timeout.tv_sec = static_cast<time_t>(left / 1000000);
    timeout.tv_nsec = static_cast<long>(left % 1000000) * 1000;
    const bool waits_on = deadline_us == NO_DEADLINE;
    const int ready = ::ppoll(awaited.data(), awaited.size(), waits_on ? nullptr : &timeout, nullptr);
    // What an interrupted wait leaves in the table must not be taken for events.
    if (ready < 0)
        for (pollfd& each : awaited)
            each.revents = 0;
    return ready < 0 && errno == EINTR ? 0 : ready;
}
