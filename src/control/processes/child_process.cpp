#include "control/processes/child_process.hpp"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <grp.h>
#include <unistd.h>

#include "control/run_state.hpp"
#include "platform/signals.hpp"

namespace {

[[noreturn]] void end_child(const char* call)
{
    std::fprintf(stderr_write, "%s() failed, %s\n", call, std::strerror(errno));
    ::_exit(1);
}

}  // namespace

void execute(const Arguments& arguments)
{
    std::vector<char*> vector;
    for (const std::string& argument : arguments)
        vector.push_back(const_cast<char*>(argument.c_str()));
    vector.push_back(nullptr);
    heed_realtime_signals();
    ::execv(vector[0], vector.data());
    ::_exit(1);
}

void make_standard(int fd, int standard)
{
    if (::dup2(fd, standard) < 0)
        ::_exit(1);
}

int open_null()
{
    const int null = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    if (null < 0)
        ::_exit(1);
    return null;
}

void keep_standard_descriptors_only()
{
    ::closefrom(STDERR_FILENO + 1);
}

// Groups go first, while the process may still change them.
void become_owner(const struct stat& file)
{
    if (::geteuid() == 0 && file.st_uid != ::getuid() && ::setgroups(0, nullptr) != 0)
        end_child("setgroups");
    if (::setgid(file.st_gid) != 0)
        end_child("setgid");
    if (::setuid(file.st_uid) != 0)
        end_child("setuid");
}

bool fork_quietly(const Arguments& arguments, const struct stat* owned)
{
    const pid_t child = fork_or_complain();
    if (child == 0) {
        const int null = open_null();
        for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            make_standard(null, standard);
        if (owned)
            become_owner(*owned);
        keep_standard_descriptors_only();
        execute(arguments);
    }
    return child > 0;
}

pid_t fork_or_complain()
{
    const pid_t child = ::fork();
    if (child < 0)
        std::fprintf(stderr_write, "fork failed\n");
    return child;
}
