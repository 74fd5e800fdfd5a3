#include "zelmctl/check/driver/driver_under_test.hpp"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "control/items/metadir.hpp"
#include "control/processes/driver_look.hpp"
#include "platform/signals.hpp"
#include "platform/time.hpp"
#include "zelmctl/check/driver/limits.hpp"
#include "zelmctl/descriptor_limit.hpp"

namespace {

constexpr useconds_t LOOK_INTERVAL_US = 2000;

}  // namespace

bool make_item(const std::string& directory, const Role& role, const std::string& name,
    const std::string& settings, MadeUpItem& item)
{
    const std::string_view path = role.directory;
    const std::string items = directory + std::string(path.substr(path.rfind('/')));
    item.settings_file = items + "/" + name;
    if (mkdir_p(items.c_str(), 0755, -1) != 0 || !find_metadir(item.settings_file, item.metadir))
        return false;
    item.entry = active_socket_path(item.metadir);
    const Descriptor file(::open(item.settings_file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644));
    return file && write_whole(file.get(), settings);
}

DriverUnderTest::DriverUnderTest(const Arguments& command, const MadeUpItem& item)
    : m_item(item), m_started_us(monotonic_clock_us())
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) {
        m_error = errno;
        return;
    }
    const Descriptor errors(ends[0]);
    Descriptor childs_end(ends[1]);
    m_pid = ::fork();
    if (m_pid == 0)
        run(command, childs_end.get());
    m_error = m_pid < 0 ? errno : 0;
    childs_end.reset();
    if (TEMP_FAILURE_RETRY(::read(errors.get(), &m_error, sizeof m_error)) < 0)
        m_error = errno;
}

// It ends with whoever started it, has nothing of what that one has open, and may do no more than it could
// by itself.
void DriverUnderTest::run(const Arguments& command, int errors) const
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::setsid();
    ::umask(UMASK);
    restore_descriptor_limit();
    const int null = open_null();
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        make_standard(null, standard);
    util_check_and_unmask_common_signals();
    heed_realtime_signals();
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    std::string file_switch = "--file";
    std::string path = m_item.settings_file;
    arguments.insert(arguments.end(), {file_switch.data(), path.data(), nullptr});
    ::execvp(arguments[0], arguments.data());
    const int error = errno;
    const ssize_t told = ::write(errors, &error, sizeof error);
    ::_exit(told > 0 ? 1 : 2);
}

DriverUnderTest::~DriverUnderTest()
{
    kill();
    ended_by(monotonic_clock_us() + END_LIMIT_US);
}

void DriverUnderTest::kill() const
{
    // Its number is its own until its end is taken note of.
    if (m_pid <= 0 || ended())
        return;
    ::kill(-m_pid, SIGKILL);
    ::kill(m_pid, SIGKILL);
}

void DriverUnderTest::look()
{
    if (!is_up() && (m_first.connect(m_item.entry) || (errno != ENOENT && errno != ECONNREFUSED)))
        m_up_us = monotonic_clock_us();
}

bool DriverUnderTest::comes_up()
{
    const std::uint64_t deadline = m_started_us + UP_LIMIT_US;
    for (look(); !is_settled() && monotonic_clock_us() < deadline; look())
        ::usleep(LOOK_INTERVAL_US);
    return is_up();
}

std::optional<int> DriverUnderTest::ended() const
{
    int ending = 0;
    if (!m_ending && m_pid > 0 && ::waitpid(m_pid, &ending, WNOHANG) == m_pid)
        m_ending = ending;
    return m_ending;
}

std::optional<int> DriverUnderTest::ended_by(std::uint64_t deadline_us) const
{
    while (m_pid > 0 && !ended() && monotonic_clock_us() < deadline_us)
        ::usleep(LOOK_INTERVAL_US);
    return ended();
}

pid_t DriverUnderTest::served_by() const
{
    return DriverLook({m_item.metadir}).drivers().front().pid;
}

std::string told_ending(int ending)
{
    return WIFSIGNALED(ending) ? "was ended by signal " + std::to_string(WTERMSIG(ending))
                               : "ended with status " + std::to_string(WEXITSTATUS(ending));
}
