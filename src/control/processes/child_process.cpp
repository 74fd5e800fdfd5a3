#include "control/processes/child_process.hpp"

#include <fcntl.h>
#include <grp.h>
#include <unistd.h>

#include "platform/signals.hpp"

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
const char* become_owner(const struct stat& file)
{
    if (::geteuid() == 0 && file.st_uid != ::getuid() && ::setgroups(0, nullptr) != 0)
        return "setgroups";
    if (::setgid(file.st_gid) != 0)
        return "setgid";
    return ::setuid(file.st_uid) != 0 ? "setuid" : nullptr;
}

bool fork_quietly(const Arguments& arguments, const struct stat* owned)
{
    const pid_t child = ::fork();
    if (child == 0) {
        const int null = open_null();
        for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            make_standard(null, standard);
        if (owned && become_owner(*owned) != nullptr)
            ::_exit(1);
        keep_standard_descriptors_only();
        execute(arguments);
    }
    return child > 0;
}
