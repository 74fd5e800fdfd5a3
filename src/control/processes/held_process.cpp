#include "control/processes/held_process.hpp"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <poll.h>

#include "platform/time.hpp"

extern "C" {
#include <sys/pidfd.h>  // says nothing of C++ in some versions of the C library
}

namespace {

constexpr std::uint64_t POLL_INTERVAL_MS = 100;

}  // namespace

HeldProcess::HeldProcess(pid_t pid) : m_pid(pid), m_handle(::pidfd_open(pid, 0))
{
    if (!m_handle && errno == ESRCH)
        m_pid = 0;
}

int HeldProcess::signal(int number) const
{
    if (m_handle)
        return ::pidfd_send_signal(m_handle.get(), number, nullptr, 0);
    if (m_pid > 0)
        return ::kill(m_pid, number);
    errno = ESRCH;
    return -1;
}

bool HeldProcess::ends_by(std::uint64_t deadline_us) const
{
    while (signal(0) == 0) {
        const std::uint64_t now_us = monotonic_clock_us();
        std::uint64_t wait_ms = POLL_INTERVAL_MS;
        if (deadline_us != 0)
            wait_ms = std::min(wait_ms, deadline_us > now_us ? (deadline_us - now_us + 999) / 1000 : 0);
        // The handle tells of the end at once, also of one that nobody has taken note of yet.
        pollfd end{m_handle.get(), POLLIN, 0};
        if (::poll(&end, m_handle ? 1 : 0, static_cast<int>(wait_ms)) > 0)
            return true;
        if (deadline_us != 0 && now_us >= deadline_us)
            return false;
    }
    return true;
}
