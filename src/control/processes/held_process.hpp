// A process that is held from the moment it was recognised, so that no other process that gets its id later
// is taken for it.
#pragma once

#include <cstdint>
#include <sys/types.h>

#include "platform/io.hpp"

class HeldProcess {
public:
    HeldProcess() = default;  // none: every signal fails with ESRCH, and it has ended

    // Takes hold of the process. Where the kernel can't, its id alone has to do.
    explicit HeldProcess(pid_t pid);

    explicit operator bool() const { return m_pid > 0; }

    // Becomes readable when the process ends; -1 where the kernel has none.
    int descriptor() const { return m_handle.get(); }

    // kill(2): 0, or -1 with errno set.
    int signal(int number) const;

    // Waits until the process has ended, or until that time on the clock of monotonic_clock_us(); 0 is
    // no limit. Whether it has ended.
    bool ends_by(std::uint64_t deadline_us) const;

private:
    pid_t m_pid = 0;  // 0 when it has gone
    Descriptor m_handle;
};
