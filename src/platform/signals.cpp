#include "platform/signals.hpp"

#include <csignal>

int util_check_and_unmask_common_signals()
{
    // The numbers that the C library keeps for itself fail here, and are of no concern.
    for (int number = 1; number <= SIGRTMAX; ++number) {
        struct sigaction current {};
        if (::sigaction(number, nullptr, &current) == 0 && current.sa_handler == SIG_IGN &&
            ::signal(number, SIG_DFL) == SIG_ERR)
            return -1;
    }
    sigset_t none;
    sigemptyset(&none);
    return ::sigprocmask(SIG_SETMASK, &none, nullptr);
}
