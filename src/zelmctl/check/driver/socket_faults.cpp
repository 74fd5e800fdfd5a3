#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

#include "control/processes/process_status.hpp"
#include "control/processes/socket_table.hpp"
#include "platform/time.hpp"
#include "zelmctl/check/driver/faults.hpp"
#include "zelmctl/check/driver/limits.hpp"

namespace {

constexpr std::uint64_t STAYS_FOR_US = 2'000'000;
constexpr std::size_t FIRST_CLIENTS = 4;
constexpr useconds_t WATCH_INTERVAL_US = 5000;
constexpr std::size_t FDINFO_SIZE = 256;

std::string of_start(const DriverUnderTest& driver)
{
    const auto ending = driver.ended();
    return ending ? "it " + told_ending(*ending) + " before it listened"
                  : "nobody listens " + std::to_string(seconds_of(UP_LIMIT_US)) + " seconds after the start";
}

// Where the entry leads, or the entry itself.
std::string bound_path(const std::string& entry)
{
    const Descriptor opened(::open(entry.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
    const std::string target = read_link(opened.get());
    return target.empty() ? entry : target;
}

std::set<unsigned int> sockets_at(const std::string& path)
{
    std::set<unsigned int> inodes;
    ProcNetUnixSnapshot sockets;
    sockets.take("/proc/net/unix");
    sockets.for_each([&](std::string_view row, unsigned int inode) {
        if (row == path)
            inodes.insert(inode);
    });
    return inodes;
}

// What makes an entry the one that it is.
bool is_same_entry(const struct stat& before, const std::string& entry)
{
    struct stat now {};
    return ::lstat(entry.c_str(), &now) == 0 && now.st_ino == before.st_ino &&
           now.st_mtim.tv_sec == before.st_mtim.tv_sec && now.st_mtim.tv_nsec == before.st_mtim.tv_nsec;
}

bool is_closed_on_exec(const std::string& process, const char* descriptor)
{
    const auto info = read_start(process + "/fdinfo/" + descriptor, FDINFO_SIZE);
    const std::size_t flags = info ? info->find("flags:") : std::string::npos;
    return flags == std::string::npos ||
           (std::strtoul(info->c_str() + flags + std::strlen("flags:"), nullptr, 8) & O_CLOEXEC) != 0;
}

}  // namespace

std::string faults::up(Trial& trial)
{
    return trial.plain().comes_up() ? "" : of_start(trial.plain()) + "; \"start\" doesn't tell";
}

std::string faults::stays(Trial& trial)
{
    const auto ending = trial.plain().ended_by(trial.plain().up_us() + STAYS_FOR_US);
    return ending ? "it " + told_ending(*ending) + " by itself; the item runs no more" : "";
}

std::string faults::kind(Trial& trial)
{
    DriverUnderTest& driver = trial.driver();
    if (driver.first_client().is_connected() || driver.first_client().connect(driver.item().entry))
        return {};
    return errno == EAGAIN ? ""
                           : "no client can connect, " + std::string(std::strerror(errno)) +
                                 "; the tools show the item as hung";
}

std::string faults::path(Trial& trial)
{
    const std::string& entry = trial.driver().item().entry;
    if (!sockets_at(bound_path(entry)).empty())
        return {};
    return "the kernel's table of sockets lacks the path of the entry; the item is shown as stopped";
}

std::string faults::found(Trial& trial)
{
    if (trial.driver().served_by() != 0)
        return {};
    return "the kernel knows the socket of that path at another file, or nobody holds it; the item is shown as "
           "stopped";
}

std::string faults::link(Trial& trial)
{
    DriverUnderTest& driver = trial.long_named();
    const std::string& entry = driver.item().entry;
    const std::string length = "at a path of " + std::to_string(entry.size()) + " bytes ";
    if (!driver.comes_up())
        return length + of_start(driver);
    const std::string target = bound_path(entry);
    if (target == entry || !target.starts_with('/'))
        return length + "the entry is no link that is absolute; the item is shown as stopped";
    return driver.served_by() != 0 ? "" : length + "nobody is found; the item is shown as stopped";
}

std::string faults::closed_on_exec(Trial& trial)
{
    const std::set<unsigned int> sockets = sockets_at(bound_path(trial.driver().item().entry));
    const std::string process = "/proc/" + std::to_string(trial.driver().served_by());
    const Directory directory(::opendir((process + "/fd").c_str()));
    while (const dirent* entry = directory ? ::readdir(directory.get()) : nullptr) {
        struct stat state {};
        if (::fstatat(::dirfd(directory.get()), entry->d_name, &state, 0) == 0 && S_ISSOCK(state.st_mode) &&
            sockets.contains(static_cast<unsigned int>(state.st_ino)) &&
            !is_closed_on_exec(process, entry->d_name))
            return "its children inherit its sockets; one that outlives it keeps the item running";
    }
    return {};
}

std::string faults::entry_rights(Trial& trial)
{
    struct stat entry {};
    if (::stat(trial.driver().item().entry.c_str(), &entry) != 0)
        return {};
    char mode[8];
    std::snprintf(mode, sizeof mode, "%04o", entry.st_mode & 07777U);
    if (entry.st_uid != ::geteuid())
        return "the entry belongs to user " + std::to_string(entry.st_uid) + "; the item is shown as stopped";
    if ((entry.st_mode & UMASK) != 0)
        return std::string("the entry's mode is ") + mode + "; others may command the item";
    return (entry.st_mode & 0600) == 0600
               ? ""
               : std::string("the entry's mode is ") + mode + "; its own user can't connect";
}

std::string faults::lock(Trial& trial)
{
    const DriverUnderTest& driver = trial.locked();
    if (!driver.is_up() || driver.up_us() >= driver.started_us() + LEAST_LOCK_WAIT_US)
        return {};
    return "it bound while somebody else held the lock; two starts at once start two drivers";
}

std::string faults::lock_in_vain(Trial& trial)
{
    return trial.locked().comes_up() ? ""
                                     : "while somebody keeps the lock, " + of_start(trial.locked()) +
                                           "; anybody may keep the item down";
}

std::string faults::second_start(Trial& trial)
{
    DriverUnderTest& first = trial.driver();
    struct stat entry {};
    ::lstat(first.item().entry.c_str(), &entry);
    const auto second = trial.start_at(first.item());
    const std::uint64_t limit = from_now(UP_LIMIT_US);
    while (is_same_entry(entry, first.item().entry) && !second->ended() && monotonic_clock_us() < limit)
        ::usleep(WATCH_INTERVAL_US);
    if (!is_same_entry(entry, first.item().entry))
        return "a second start takes the entry; the first driver is out of reach and goes on";
    if (!second->ended())
        return "a second start goes on; one of the two is never ended";
    return trial.ask("report").is_answer() ? "" : "after a second start the first driver doesn't answer";
}

std::string faults::dead_entry(Trial& trial)
{
    const MadeUpItem item = trial.driver().item();
    trial.driver().kill();
    trial.plain().ended_by(from_now(END_LIMIT_US));
    const auto next = trial.start_at(item);
    return next->comes_up() ? "" : "after a kill " + of_start(*next) + "; the item stays stopped";
}

std::string faults::accepts(Trial& trial)
{
    const std::uint64_t limit = from_now(ANSWER_LIMIT_US);
    std::vector<DriverClient> clients(FIRST_CLIENTS);
    const bool all = std::all_of(clients.begin(), clients.end(),
        [&](DriverClient& client) { return client.connect_by(trial.driver().item().entry, limit); });
    return all ? "" : "connections aren't accepted; the tools show the item as hung";
}
