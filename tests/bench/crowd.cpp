// A busy machine for the measurements: `crowd PROCESSES SOCKETS DIRECTORY` starts processes that do
// nothing, spreads listening sockets among them, says "ready" and waits until it is ended.
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/prctl.h>
#include <unistd.h>

#include "platform/socket_io.hpp"

namespace {

bool listen_at(const std::string& path)
{
    SocketAddress address;
    Descriptor socket(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0));
    if (!socket || !address.set(path) ||
        ::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address.address), address.length) != 0 ||
        ::listen(socket.get(), 1) != 0)
        return false;
    socket.release();  // held to the end of the process
    return true;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    const int processes = std::atoi(argv[1]);
    const int sockets = std::atoi(argv[2]);
    for (int i = 0; i < processes; ++i) {
        const pid_t child = ::fork();
        if (child < 0 || (i < sockets && child == 0 && !listen_at(argv[3] + ("/" + std::to_string(i)))))
            return 1;
        if (child == 0) {
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            for (;;)
                ::pause();
        }
    }
    ::usleep(200000);
    std::puts("ready");
    std::fflush(stdout);
    for (;;)
        ::pause();
}
