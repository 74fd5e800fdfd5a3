#include "control/running_state.hpp"

#include <algorithm>
#include <cassert>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "control/items.hpp"
#include "control/proc_snapshots.hpp"
#include "control/run_state.hpp"
#include "platform/metadata.hpp"

namespace {

const std::string PROC_PATH = "/proc";
const std::string OPEN_AF_UNIX_SOCKETS = "/proc/net/unix";

constexpr int START_TIME_FIELD = 22;  // of a process's status line, counted from 1

ProcNetUnixSnapshot net_unix_snapshot;
ProcfsFileHandleSnapshot procfs_filehandle_snapshot;
bool have_snapshot = false;

std::uint64_t kernel_uptime = 0;        // in clock ticks
std::int64_t kernel_clock_ticks = 100;  // a second

// Once a run, also when it fails: what the tables say at the first test holds to the end.
void take_snapshots()
{
    if (have_snapshot)
        return;
    have_snapshot = true;
    net_unix_snapshot.take(OPEN_AF_UNIX_SOCKETS.c_str());
    procfs_filehandle_snapshot.take(PROC_PATH.c_str());
}

// Where the socket entry leads, with `state` telling what is there: the entry itself, or the target of an
// absolute link, which is followed this once. False when it leads nowhere.
bool resolve_socket(std::string& path, struct stat& state)
{
    if (::lstat(path.c_str(), &state) != 0)
        return false;
    if (!S_ISLNK(state.st_mode))
        return true;
    char tmp[PATH_MAX];
    const ssize_t rd = ::readlink(path.c_str(), tmp, sizeof tmp - 1);
    if (rd < 1)
        return false;
    assert((size_t)rd < sizeof(tmp));
    path.assign(tmp, static_cast<std::size_t>(rd));
    return path.front() == '/' && ::lstat(path.c_str(), &state) == 0;
}

// The process that holds the socket bound at the path, or 0.
//
// The kernel gives the listener's path to its connections too, and may write their rows first: those that
// the driver hasn't accepted, which no process can hold, and those that ended between the two snapshots.
// So a row that nobody holds says nothing as long as there is another.
pid_t holder_of(const std::string& socket)
{
    ProcNetUnixEntry row;
    ProcfsFileHandleSnapshotEntry handle;
    pid_t holder = 0;
    for (std::size_t nth = 0; net_unix_snapshot.lookup_sock_path(row, socket, nth); ++nth)
        if (procfs_filehandle_snapshot.lookup_socket_inode(holder, handle, row.inode))
            return holder;
    return 0;
}

// The first bytes of a small file, ending at the first line feed.
bool read_line_of(const std::string& path, char* line, std::size_t size)
{
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    const ssize_t got = file ? ::read(file.get(), line, size - 1) : -1;
    line[std::max<ssize_t>(got, 0)] = '\0';
    line[std::strcspn(line, "\n")] = '\0';
    return got >= 0;
}

// The start time in a process's status line, in clock ticks since the kernel came up. The process's name
// stands in parentheses and may hold blanks; one that holds ")" is cut at the first.
long long start_time(const char* line)
{
    skiptospc(line);
    if (*line == '(') {
        line += std::strcspn(line, ")");
        if (*line == ')')
            ++line;
        line += std::strspn(line, " ");
    }
    for (int field = 3; field < START_TIME_FIELD; ++field)
        skiptospc(line);
    return std::strtoll(line, nullptr, 10);
}

}  // namespace

std::string active_socket_path(const std::string& metadir)
{
    return metadir + "/" + ACTIVE_SOCKET_ENTRY;
}

int is_item_running(const std::string& item, pid_t* pid)
{
    const std::string path = settings_path(item);
    take_snapshots();
    if (pid)
        *pid = 0;
    struct stat state {};
    std::string metadir;
    if (!stat_settings(path, state) || !find_metadir_or_complain(path, metadir))
        return 0;
    if (::lstat(metadir.c_str(), &state) != 0 || !S_ISDIR(state.st_mode))
        return 0;
    std::string socket = active_socket_path(metadir);
    if (!resolve_socket(socket, state) || !S_ISSOCK(state.st_mode))
        return 0;
    const pid_t holder = holder_of(socket);
    if (pid)
        *pid = holder;
    return holder != 0 ? 1 : 0;
}

std::vector<pid_t> running_processes(const std::vector<std::string>& items)
{
    std::vector<pid_t> processes(items.size());
    for (std::size_t i = 0; i < items.size(); ++i)
        is_item_running(items[i], &processes[i]);
    return processes;
}

void read_kernel_uptime()
{
    kernel_clock_ticks = ::sysconf(_SC_CLK_TCK);
    kernel_uptime = 0;
    char line[256];
    if (read_line_of("/proc/uptime", line, sizeof line))
        kernel_uptime =
            static_cast<std::uint64_t>(std::strtod(line, nullptr) * static_cast<double>(kernel_clock_ticks));
}

std::optional<double> process_uptime(pid_t pid)
{
    const std::string path = PROC_PATH + "/" + std::to_string(pid) + "/stat";
    struct stat state {};
    if (::lstat(path.c_str(), &state) != 0 || !S_ISREG(state.st_mode))
        return {};
    char line[4096];
    if (!read_line_of(path, line, sizeof line))
        return 0.0;
    const auto ticks = static_cast<long long>(kernel_uptime) - start_time(line);
    return static_cast<double>(std::max(ticks, 0LL)) / static_cast<double>(kernel_clock_ticks);
}
