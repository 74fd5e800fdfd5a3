#include "zelmctl/check/driver/custody.hpp"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "control/processes/process_status.hpp"
#include "platform/io.hpp"
#include "platform/time.hpp"
#include "zelmctl/options.hpp"

namespace {

constexpr std::uint64_t KILL_LIMIT_US = 5'000'000;
constexpr useconds_t KILL_INTERVAL_US = 1000;

// Not where items are: no tool may see one there. Without blanks, and short enough for a socket's address.
class PrivateDirectory {
public:
    PrivateDirectory() { m_is_there = ::mkdtemp(m_path) != nullptr; }
    PrivateDirectory(const PrivateDirectory&) = delete;
    PrivateDirectory& operator=(const PrivateDirectory&) = delete;
    ~PrivateDirectory()
    {
        std::error_code ignored;
        if (m_is_there)
            std::filesystem::remove_all(m_path, ignored);
    }
    explicit operator bool() const { return m_is_there; }
    const char* path() const { return m_path; }

private:
    char m_path[32] = "/tmp/zelmctl-check.XXXXXX";
    bool m_is_there;
};

// The signals that are waited for instead of being heeded, for as long as this lives.
class HeldBackSignals {
public:
    HeldBackSignals()
    {
        sigemptyset(&m_signals);
        for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGCHLD})
            sigaddset(&m_signals, number);
        ::sigprocmask(SIG_BLOCK, &m_signals, nullptr);
    }
    HeldBackSignals(const HeldBackSignals&) = delete;
    HeldBackSignals& operator=(const HeldBackSignals&) = delete;
    ~HeldBackSignals() { ::sigprocmask(SIG_UNBLOCK, &m_signals, nullptr); }

    int wait() const { return ::sigwaitinfo(&m_signals, nullptr); }

private:
    sigset_t m_signals{};
};

[[noreturn]] void work_in_child(
    pid_t parent, const std::function<Status(const std::string&)>& work, const std::string& directory)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
    if (::getppid() != parent)
        ::_exit(TROUBLE);
    const Status status = work(directory);
    ::_exit(std::fflush(stdout) == 0 && std::ferror(stdout) == 0 ? status : complain(std::strerror(errno)));
}

// Waits for the worker, or for a signal, whose number it is; 0 without one.
int wait_for(pid_t worker, const HeldBackSignals& signals, Status& status)
{
    for (;;) {
        const int signal = signals.wait();
        int ending = 0;
        if (signal > 0 && signal != SIGCHLD)
            return signal;
        if (::waitpid(worker, &ending, WNOHANG) != worker)
            continue;
        status = WIFEXITED(ending) ? static_cast<Status>(WEXITSTATUS(ending)) : TROUBLE;
        return WIFSIGNALED(ending) ? WTERMSIG(ending) : 0;
    }
}

}  // namespace

Status in_custody(const std::function<Status(const std::string& directory)>& work)
{
    Status status = TROUBLE;
    int signal = 0;
    {
        const HeldBackSignals signals;  // a second one isn't to keep the directory from being removed
        const PrivateDirectory directory;
        const pid_t parent = ::getpid();
        ::prctl(PR_SET_CHILD_SUBREAPER, 1);
        const pid_t worker = directory ? ::fork() : -1;
        if (worker == 0)
            work_in_child(parent, work, directory.path());
        if (worker < 0)
            return complain(std::string("no process or directory for the driver: ") + std::strerror(errno));
        signal = wait_for(worker, signals, status);
        end_children();
    }
    if (signal != 0)
        ::raise(signal);
    return status;
}

std::vector<pid_t> children()
{
    std::vector<pid_t> found;
    const Directory proc(::opendir("/proc"));
    while (const dirent* entry = proc ? ::readdir(proc.get()) : nullptr)
        if (const pid_t pid = std::atoi(entry->d_name); pid > 0 && parent_of(pid) == ::getpid())
            found.push_back(pid);
    return found;
}

void end_children()
{
    const std::uint64_t patience = monotonic_clock_us() + KILL_LIMIT_US;
    while (monotonic_clock_us() < patience) {
        for (const pid_t child : children())
            ::kill(child, SIGKILL);
        pid_t reaped = 0;
        while ((reaped = ::waitpid(-1, nullptr, WNOHANG)) > 0) {
        }
        if (reaped < 0)
            return;
        ::usleep(KILL_INTERVAL_US);
    }
}
