#include "platform/signals.hpp"

#include <csignal>
#include <initializer_list>

int util_check_and_unmask_common_signals()
{
    sigset_t common;
    sigemptyset(&common);
    for (const int number : {SIGHUP, SIGINT, SIGQUIT, SIGPIPE, SIGALRM, SIGTERM, SIGUSR1, SIGUSR2, SIGCHLD,
             SIGTSTP, SIGTTIN, SIGTTOU}) {
        sigaddset(&common, number);
        struct sigaction ignored_before {};
        if (::sigaction(number, nullptr, &ignored_before) == 0 && ignored_before.sa_handler != SIG_DFL &&
            ::signal(number, SIG_DFL) == SIG_ERR)
            return -1;
    }
    return ::sigprocmask(SIG_UNBLOCK, &common, nullptr);
}
