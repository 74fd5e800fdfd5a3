#include "platform/signals.hpp"

#include <csignal>

void util_check_and_unmask_common_signals()
{
    // The numbers that the C library keeps for itself fail here, and are of no concern.
    for (int number = 1; number <= SIGRTMAX; ++number) {
        struct sigaction current {};
        if (::sigaction(number, nullptr, &current) == 0 && current.sa_handler == SIG_IGN)
            ::signal(number, SIG_DFL);
    }
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

void let_oversized_writes_fail()
{
    // A handler, since an ignored signal stays ignored in an executed program.
    struct sigaction action {};
    action.sa_handler = [](int) {};
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGXFSZ, &action, nullptr);
}
