#include "platform/signals.hpp"

#include <csignal>
#include <sys/signalfd.h>

namespace {

// The numbers that the C library keeps for itself fail here, and are of no concern.
void heed_signals(int first, int last)
{
    for (int number = first; number <= last; ++number) {
        struct sigaction current {};
        if (::sigaction(number, nullptr, &current) == 0 && current.sa_handler == SIG_IGN)
            ::signal(number, SIG_DFL);
    }
}

}  // namespace

void util_check_and_unmask_common_signals()
{
    heed_signals(1, SIGSYS);
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

void heed_realtime_signals()
{
    heed_signals(SIGSYS + 1, SIGRTMAX);
}

void let_oversized_writes_fail()
{
    // A handler, since an ignored signal stays ignored in an executed program.
    struct sigaction action {};
    action.sa_handler = [](int) {};
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGXFSZ, &action, nullptr);
}

Descriptor hold_back_end_signals()
{
    sigset_t heeded;
    sigemptyset(&heeded);
    sigaddset(&heeded, SIGTERM);
    sigaddset(&heeded, SIGINT);
    if (::pthread_sigmask(SIG_BLOCK, &heeded, nullptr) != 0)
        return {};
    return Descriptor(::signalfd(-1, &heeded, SFD_CLOEXEC | SFD_NONBLOCK));
}
