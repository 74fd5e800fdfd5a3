#include "platform/signals.hpp"

#include <csignal>

namespace {

constexpr int LAST_COMMON_SIGNAL = 31;  // the realtime signals follow

}  // namespace

int util_check_and_unmask_common_signals()
{
    for (int number = 1; number <= LAST_COMMON_SIGNAL; ++number) {
        struct sigaction current {};
        if (::sigaction(number, nullptr, &current) == 0 && current.sa_handler == SIG_IGN &&
            ::signal(number, SIG_DFL) == SIG_ERR)
            return -1;
    }
    sigset_t none;
    sigemptyset(&none);
    return ::sigprocmask(SIG_SETMASK, &none, nullptr);
}
