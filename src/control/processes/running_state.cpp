#include "control/processes/running_state.hpp"

#include <algorithm>
#include <cassert>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <map>
#include <set>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "control/commands/item_checks.hpp"
#include "control/commands/items_of_run.hpp"
#include "control/items/metadir.hpp"
#include "control/processes/proc_snapshots.hpp"
#include "control/processes/socket_diagnosis.hpp"
#include "control/run_state.hpp"
#include "platform/metadata.hpp"
#include "platform/text.hpp"

namespace {

const std::string PROC_PATH = "/proc";
const std::string OPEN_AF_UNIX_SOCKETS = "/proc/net/unix";

constexpr int START_TIME_FIELD = 22;  // of a process's status line, counted from 1

// The socket of an item: what is there, and who was found to serve it.
struct ItemSocket {
    FileNumbers file;
    bool is_looked_within = false;
    RunningDriver driver{};
};
using ItemSockets = std::map<std::string, ItemSocket, std::less<>>;

// What the first test of a run finds holds to its end, by the paths of the sockets.
ItemSockets item_sockets;
bool have_snapshot = false;

std::uint64_t kernel_uptime = 0;        // in clock ticks
std::int64_t kernel_clock_ticks = 100;  // a second

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

// The path of an item's socket, and what is there; empty when there is none.
std::string find_socket(const std::string& item, bool complains, struct stat& entry)
{
    const std::string path = settings_path(item);
    std::string metadir;
    if (complains && !stat_settings_or_complain(path, entry))
        return {};
    if (!(complains ? find_metadir_or_complain(path, metadir) : find_metadir(path, metadir)))
        return {};
    std::string socket = active_socket_path(metadir);
    struct stat directory {};
    const bool found = resolve_socket(socket, entry) && S_ISSOCK(entry.st_mode) &&
                       ::lstat(metadir.c_str(), &directory) == 0 && S_ISDIR(directory.st_mode);
    return found ? socket : std::string();
}

// Whether the kernel says that the socket is bound at the item's entry, and not only a row that anybody may
// have forged.
bool is_confirmed(unsigned int inode, const std::vector<BoundSocket>& bound, ItemSockets::value_type& item)
{
    const auto found = std::lower_bound(bound.begin(), bound.end(), inode,
        [](const BoundSocket& each, unsigned int wanted) { return each.inode < wanted; });
    if (found == bound.end() || found->inode != inode)
        return false;
    auto& [path, socket] = item;
    if (found->file != socket.file && !std::exchange(socket.is_looked_within, true))
        look_within(path, socket.file);
    return found->file == socket.file;
}

// One look at the processes, for the sockets whose driver isn't known yet.
//
// The kernel gives the listener's path to its connections too, and may write their rows first: those that
// the driver hasn't accepted, which have no inode yet, and those that end before their holder is looked
// for. So a row that nobody holds says nothing as long as there is another.
void find_drivers(const ProcNetUnixSnapshot& table)
{
    std::vector<std::pair<ItemSockets::iterator, unsigned int>> rows;
    table.for_each([&](std::string_view path, unsigned int inode) {
        const auto item = inode != 0 ? item_sockets.find(path) : item_sockets.end();
        if (item != item_sockets.end() && item->second.driver.pid == 0)
            rows.emplace_back(item, inode);
    });
    const auto bound = rows.empty() ? std::nullopt : bound_sockets();
    if (bound)
        std::erase_if(rows, [&](const auto& row) { return !is_confirmed(row.second, *bound, *row.first); });
    std::vector<SoughtSocket> sought;
    sought.reserve(rows.size());
    std::set<const ItemSocket*> with_rows;
    for (const auto& [item, inode] : rows)
        sought.push_back({inode, with_rows.insert(&item->second).second});
    find_holders(PROC_PATH.c_str(), sought);
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (RunningDriver& driver = rows[i].first->second.driver; driver.pid == 0 && sought[i].holder != 0)
            driver = {sought[i].holder, sought[i].inode};
}

// The kernel hands the table out in pieces and skips rows while sockets close between two of them. So a
// socket that is there without a driver is looked at once more.
void take_snapshots(ProcNetUnixSnapshot& table)
{
    find_drivers(table);
    bool is_complete = true;
    for (auto& [path, socket] : item_sockets) {
        struct stat entry {};
        if (socket.driver.pid == 0 && ::lstat(path.c_str(), &entry) == 0) {
            is_complete = false;
            socket = {numbers_of(entry)};
        }
    }
    if (is_complete || !table.is_readable())
        return;
    table.take(OPEN_AF_UNIX_SOCKETS.c_str());
    find_drivers(table);
}

// The drivers of the items that are asked for. The first call finds them, and those of the others, and all
// later ones judge by that.
std::vector<RunningDriver> drivers_of(
    const std::vector<std::string>& asked, const std::vector<std::string>& others)
{
    const bool is_first = !std::exchange(have_snapshot, true);
    ProcNetUnixSnapshot table;
    if (is_first)
        table.take(OPEN_AF_UNIX_SOCKETS.c_str());
    struct stat entry {};
    std::vector<std::string> sockets;
    for (const std::string& item : asked) {
        sockets.push_back(find_socket(item, true, entry));
        if (is_first && !sockets.back().empty())
            item_sockets[sockets.back()] = {numbers_of(entry)};
    }
    if (is_first) {
        for (const std::string& item : others)
            if (const std::string socket = find_socket(item, false, entry); !socket.empty())
                item_sockets[socket] = {numbers_of(entry)};
        take_snapshots(table);
    }
    std::vector<RunningDriver> drivers;
    for (const std::string& socket : sockets) {
        const auto found = item_sockets.find(socket);
        drivers.push_back(found == item_sockets.end() ? RunningDriver{} : found->second.driver);
    }
    return drivers;
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

RunningDriver running_driver(const std::string& item)
{
    return drivers_of({item}, itemlist).front();
}

bool still_serves(const RunningDriver& driver)
{
    return driver.pid != 0 && holds_socket(PROC_PATH.c_str(), driver.pid, driver.socket);
}

int is_item_running(const std::string& item, pid_t* pid)
{
    const RunningDriver driver = running_driver(item);
    if (pid)
        *pid = driver.pid;
    return driver.pid != 0 ? 1 : 0;
}

std::vector<pid_t> running_processes(const std::vector<std::string>& items)
{
    std::vector<pid_t> processes;
    for (const RunningDriver& driver : drivers_of(items, {}))
        processes.push_back(driver.pid);
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
