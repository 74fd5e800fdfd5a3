#include "e2e/sandbox_testing.hpp"

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

pid_t parent_of(pid_t pid)
{
    const std::string stat = read_file("/proc/" + std::to_string(pid) + "/stat");
    const std::size_t name_end = stat.rfind(") ");
    return name_end == std::string::npos ? 0 : std::stoi(stat.substr(name_end + sizeof ") S"));
}

// The sandbox's init, to which everything comes that outlives its parent.
pid_t init_of_this_sandbox()
{
    pid_t pid = ::getppid();
    while (pid > 1 && read_file("/proc/" + std::to_string(pid) + "/comm") != "tini\n")
        pid = parent_of(pid);
    return pid;
}

// Where namespaces are refused, there may be others' drivers beside it, with the same names.
bool is_of_this_sandbox(pid_t pid)
{
    static const pid_t init = init_of_this_sandbox();
    while (pid > 1 && pid != init)
        pid = parent_of(pid);
    return pid == init;
}

// Only what the tool starts is ended.
bool is_of_the_appliance(const fs::path& process)
{
    const std::string name = read_file(process / "comm");
    if (name == "daemon\n")
        return read_file(process / "cmdline").find("--name=tavorn.") != std::string::npos;
    return name.starts_with("zelm_") || name.starts_with("tavorn-comm") || name.starts_with("appliance_");
}

bool end_one_process(const fs::path& process)
{
    const std::string id = process.filename();
    if (id.find_first_not_of("0123456789") != std::string::npos || !is_of_the_appliance(process) ||
        !is_of_this_sandbox(std::stoi(id)))
        return false;
    ::kill(std::stoi(id), SIGKILL);
    return true;
}

// A supervisor may just be starting its process anew, so this looks until nothing is left.
bool end_all_processes()
{
    bool ended_any = false;
    for (const fs::directory_entry& process : fs::directory_iterator("/proc"))
        ended_any = end_one_process(process.path()) || ended_any;
    while (::waitpid(-1, nullptr, WNOHANG) > 0) {
    }
    return !ended_any;
}

// All below /run, and what is in a directory in front of it.
std::set<fs::path, std::greater<>> below_run()
{
    return {fs::recursive_directory_iterator("/run"), {}};
}

int status_of(int raw)
{
    return WIFEXITED(raw) ? WEXITSTATUS(raw) : 128 + WTERMSIG(raw);
}

// A driver runs to all appearance once its socket is bound, a moment before it listens there.
bool no_socket_is_only_bound()
{
    return read_file("/proc/net/unix").find(" 00000000 0005 01 ") == std::string::npos;
}

}  // namespace

Outcome sh(const std::string& command_line)
{
    const std::string out = "/run/e2e.out";
    const std::string err = "/run/e2e.err";
    // Detached processes may keep the streams open, so they go to files and not through pipes.
    const std::string redirected = "{ " + command_line + "\n} >" + out + " 2>" + err;
    const int raw = std::system(redirected.c_str());
    return {status_of(raw), read_file(out), read_file(err)};
}

std::string output_of(const std::string& command_line)
{
    const Outcome outcome = sh(command_line);
    EXPECT_EQ(outcome.status, 0) << command_line << "\n" << outcome.out << outcome.err;
    EXPECT_EQ(outcome.err, "") << command_line;
    return outcome.out;
}

void expect_all(const std::vector<Expected>& rows)
{
    for (const Expected& row : rows)
        expect_each({row.command_line}, {row.status, row.out, row.err});
}

void expect_each(const std::vector<std::string>& command_lines, const Outcome& outcome)
{
    for (const std::string& command_line : command_lines) {
        const Outcome actual = sh(command_line);
        EXPECT_EQ(actual.status, outcome.status) << command_line;
        EXPECT_EQ(actual.out, outcome.out) << command_line;
        EXPECT_EQ(actual.err, outcome.err) << command_line;
    }
}

bool has_other_users()
{
    return sh(AS_NOBODY + "true").status == 0;
}

bool sees_other_users()
{
    return has_other_users() && sh(AS_NOBODY + "sleep 9 & until grep -qs sleep /proc/$!/comm; do :; done; "
                                               "readlink /proc/$!/exe; seen=$?; kill $!; exit $seen")
                                        .status == 0;
}

Mount::Mount(const std::string& arguments, const std::string& where)
    : m_where(where), m_mounted(sh("mount " + arguments + " '" + where + "'").status == 0)
{
}

Mount::~Mount()
{
    if (m_mounted)
        sh("umount -l '" + m_where + "'");
}

bool HeldRun::is_possible()
{
    return sh("strace -o /dev/null true").status == 0;
}

// The signal comes when the call has been made. A search for leaks isn't possible in what is traced.
HeldRun::HeldRun(const std::string& call, const std::string& command_line)
{
    sh("rm -f /run/held.*; ASAN_OPTIONS=detect_leaks=0 strace -qq -o /run/held.trace --inject=" + call +
        ":signal=SIGSTOP:when=1 sh -c 'echo $$ >/run/held.pid; exec " + command_line +
        "' >/run/held.out 2>&1 & echo $! >/run/held.strace");
    EXPECT_TRUE(eventually([] {
        return read_file("/run/held.trace").find("--- stopped by SIGSTOP") != std::string::npos;
    })) << command_line;
}

std::string HeldRun::end()
{
    sh("kill -CONT $(cat /run/held.pid)");
    EXPECT_TRUE(eventually([] { return sh("test -e /proc/$(cat /run/held.strace)").status != 0; }));
    return read_file("/run/held.out");
}

void write_file(const std::string& path, const std::string& text)
{
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream(path, std::ios::binary | std::ios::trunc) << text;
}

std::string read_file(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();  // which throws nothing when a process goes while its file in /proc is read
    return text.str();
}

bool exists(const std::string& path)
{
    return fs::symlink_status(path).type() != fs::file_type::not_found;
}

bool eventually(const std::function<bool()>& condition, std::chrono::milliseconds limit)
{
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return true;
}

pid_t pid_of(const std::string& tool, const std::string& item)
{
    const std::string listing = sh(tool + " -c list --no-manifest --timeout -1 -o '" + item + "'").out;
    const std::size_t at = listing.find("\tpid=");
    return at == std::string::npos ? 0 : std::stoi(listing.substr(at + 5));
}

void bring_up(const std::string& tool, const std::string& item, const std::string& switches)
{
    const Outcome outcome = sh(tool + " -c start -o '" + item + "' " + switches);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_TRUE(eventually([&] { return sh(tool + " -c status -o '" + item + "'").status == 0; }))
        << item << " did not come up: " << outcome.err;
    // Without a private network the sockets of others are in the table too, and may stay as they are.
    eventually(no_socket_is_only_bound, std::chrono::seconds(1));
}

pid_t start(const std::string& tool, const std::string& item, const std::string& switches)
{
    bring_up(tool, item, switches);
    return pid_of(tool, item);
}

bool is_alive(pid_t pid)
{
    const std::string state = read_file("/proc/" + std::to_string(pid) + "/stat");
    const std::size_t name_end = state.rfind(") ");
    return name_end != std::string::npos && state[name_end + 2] != 'Z';
}

void Appliance::clear()
{
    EXPECT_TRUE(eventually(end_all_processes));
    std::error_code ignored;
    fs::remove_all("/mnt/main", ignored);
    // What was there before the first test is not the tests'; what drivers and tests left goes.
    static const auto kept = below_run();
    for (const fs::path& left : below_run())
        if (!kept.contains(left))
            fs::remove(left, ignored);
    for (const std::string& directory : {OUTPUTS, CHANNELS, INPUTS, ROUTERS})
        fs::create_directories(directory);
}
