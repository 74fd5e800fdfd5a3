#include "control/processes/socket_holders.hpp"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <functional>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/io.hpp"

namespace {

// The number that the whole name is in decimal, or -1.
long whole_number(const char* name)
{
    if (*name < '0' || *name > '9')
        return -1;
    char* end = nullptr;
    errno = 0;
    const long number = std::strtol(name, &end, 10);
    return *end == '\0' && errno == 0 ? number : -1;
}

// A directory's entries, many with each call of the kernel.
class Entries {
public:
    explicit Entries(int directory) : m_directory(directory) {}

    const dirent64* next()
    {
        if (m_at >= m_end) {
            m_at = 0;
            m_end = ::getdents64(m_directory, m_block, sizeof m_block);
            if (m_end <= 0)
                return nullptr;
        }
        const auto* entry = reinterpret_cast<const dirent64*>(m_block + m_at);
        m_at += entry->d_reclen;
        return entry;
    }

private:
    int m_directory;
    ssize_t m_at = 0;
    ssize_t m_end = 0;
    alignas(dirent64) char m_block[std::size_t{16} * 1024];
};

bool is_link(int directory, const dirent64& entry)
{
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_LNK;
    struct stat state {};
    return ::fstatat(directory, entry.d_name, &state, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(state.st_mode);
}

// The socket that a descriptor's link names as "socket:[inode]".
bool is_socket(int directory, const dirent64& entry, unsigned int& inode)
{
    constexpr std::string_view PREFIX = "socket:[";
    char tmp[64];  // whatever is longer is no socket
    if (whole_number(entry.d_name) < 0 || !is_link(directory, entry))
        return false;
    const ssize_t rd = ::readlinkat(directory, entry.d_name, tmp, sizeof tmp - 1);
    assert(rd < 0 || (size_t)rd < sizeof(tmp));
    tmp[std::max<ssize_t>(rd, 0)] = '\0';
    const char* number = tmp + PREFIX.size();
    if (!std::string_view(tmp).starts_with(PREFIX) || *number < '0' || *number > '9')
        return false;
    char* end = nullptr;
    inode = static_cast<unsigned int>(std::strtoul(number, &end, 10));
    return *end == ']';
}

// Calls back with each socket that the process holds, until it is told by false to stop.
template <typename Visit> void visit_sockets(int proc, pid_t pid, const Visit& visit)
{
    const std::string path = std::to_string(pid) + "/fd";
    const Descriptor directory(::openat(proc, path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!directory)
        return;
    Entries entries(directory.get());
    unsigned int inode = 0;
    while (const dirent64* entry = entries.next())
        if (is_socket(directory.get(), *entry, inode) && !visit(inode))
            return;
}

std::vector<pid_t> processes_from_the_highest(int proc)
{
    std::vector<pid_t> pids;
    Entries entries(proc);
    while (const dirent64* entry = entries.next())
        if (const long pid = whole_number(entry->d_name); pid > 0)
            pids.push_back(static_cast<pid_t>(pid));
    std::sort(pids.begin(), pids.end(), std::greater<>());
    return pids;
}

// Whether this is the process that was sought. One that doesn't count is asked for its users once.
bool take_holder(const char* proc, pid_t pid, SoughtSocket& sought)
{
    if (sought.holder != 0 || sought.other_holder == pid)
        return false;
    const bool counts = sought.users.include(proc, pid);
    (counts ? sought.holder : sought.other_holder) = pid;
    return counts;
}

Descriptor open_directory(const char* path)
{
    return Descriptor(::open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

}  // namespace

void find_holders(const char* proc, std::vector<SoughtSocket>& sought)
{
    std::vector<SoughtSocket*> by_inode(sought.size());
    std::transform(sought.begin(), sought.end(), by_inode.begin(), [](SoughtSocket& each) { return &each; });
    std::sort(by_inode.begin(), by_inode.end(),
        [](const auto* one, const auto* other) { return one->inode < other->inode; });
    auto undecided =
        std::count_if(sought.begin(), sought.end(), [](const auto& each) { return each.decides; });
    const Descriptor directory = undecided > 0 ? open_directory(proc) : Descriptor();
    if (!directory)
        return;
    for (const pid_t pid : processes_from_the_highest(directory.get())) {
        visit_sockets(directory.get(), pid, [&](unsigned int inode) {
            auto found = std::lower_bound(by_inode.begin(), by_inode.end(), inode,
                [](const auto* each, unsigned int wanted) { return each->inode < wanted; });
            for (; found != by_inode.end() && (*found)->inode == inode; ++found) {
                undecided -= take_holder(proc, pid, **found) && (*found)->decides ? 1 : 0;
            }
            return undecided > 0;
        });
        if (undecided == 0)
            return;
    }
}

bool holds_socket(const char* proc, pid_t pid, unsigned int inode)
{
    bool holds = false;
    if (const Descriptor directory = open_directory(proc))
        visit_sockets(directory.get(), pid, [&](unsigned int each) {
            holds = each == inode;
            return !holds;
        });
    return holds;
}
