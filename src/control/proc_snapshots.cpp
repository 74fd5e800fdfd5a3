#include "control/proc_snapshots.hpp"

#include <algorithm>
#include <cassert>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

#include "control/run_state.hpp"
#include "platform/io.hpp"

namespace {

constexpr std::size_t FIELD_LIMIT = 63;  // a row's fields behind this one are not looked at
constexpr std::size_t NO_COLUMN = static_cast<std::size_t>(-1);

// The words between runs of spaces, at most `limit`.
std::vector<std::string_view> words(std::string_view line, std::size_t limit = NO_COLUMN)
{
    std::vector<std::string_view> found;
    std::size_t begin = line.find_first_not_of(' ');
    while (begin != std::string_view::npos && found.size() < limit) {
        const std::size_t end = std::min(line.find(' ', begin), line.size());
        found.push_back(line.substr(begin, end - begin));
        begin = line.find_first_not_of(' ', end);
    }
    return found;
}

// The last column of that name, whatever its case.
std::size_t column_of(const std::vector<std::string_view>& names, const char* wanted)
{
    std::size_t column = NO_COLUMN;
    for (std::size_t i = 0; i < names.size(); ++i)
        if (::strcasecmp(std::string(names[i]).c_str(), wanted) == 0)
            column = i;
    return column;
}

void complain_about_header(const std::vector<std::string_view>& names)
{
    std::fprintf(stderr_write,
        "procnetunixsnapshot: one or more required columns are missing. I need inode and path.\n");
    std::fprintf(stderr_write, "Headers read from /proc/net/unix were:\n");
    for (std::size_t i = 0; i < names.size(); ++i)
        std::fprintf(stderr_write, "   entry[%zu] = '%s'\n", i, std::string(names[i]).c_str());
}

// A name that is a whole decimal number, or 0.
unsigned long whole_number(const char* name)
{
    if (*name < '0' || *name > '9')
        return 0;
    char* end = nullptr;
    const unsigned long number = std::strtoul(name, &end, 10);
    return *end == '\0' ? number : 0;
}

bool is_link(int directory, const dirent& entry)
{
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_LNK;
    struct stat state {};
    return ::fstatat(directory, entry.d_name, &state, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(state.st_mode);
}

// The inode of "socket:[inode]".
bool socket_inode(const std::string& target, unsigned int& inode)
{
    constexpr std::string_view PREFIX = "socket:[";
    if (!target.starts_with(PREFIX) || target[PREFIX.size()] < '0' || target[PREFIX.size()] > '9')
        return false;
    char* end = nullptr;
    inode = static_cast<unsigned int>(std::strtoul(target.c_str() + PREFIX.size(), &end, 10));
    return *end == ']';
}

}  // namespace

void ProcNetUnixSnapshot::take(const char* file)
{
    snapshot.clear();
    m_by_path.clear();
    const Descriptor table(::open(file, O_RDONLY | O_CLOEXEC));
    if (!table)
        return;
    LineReader lines(table.get());
    std::string_view line;
    lines.next(line);
    const std::vector<std::string_view> names = words(line);
    const std::size_t inode_column = column_of(names, "Inode");
    const std::size_t path_column = column_of(names, "Path");
    if (inode_column == NO_COLUMN || path_column == NO_COLUMN) {
        complain_about_header(names);
        return;
    }
    if (inode_column > FIELD_LIMIT || path_column > FIELD_LIMIT) {
        std::fprintf(stderr_write, "procnetunixsnapshot: columns out of range.\n");
        return;
    }
    while (lines.next(line))
        add_row(line, inode_column, path_column);
    for (std::size_t i = 0; i < snapshot.size(); ++i)
        if (!snapshot[i].path.empty())
            m_by_path.try_emplace(snapshot[i].path, i);
}

void ProcNetUnixSnapshot::add_row(std::string_view line, std::size_t inode_column, std::size_t path_column)
{
    const std::vector<std::string_view> fields = words(line, FIELD_LIMIT);
    if (inode_column >= fields.size())
        return;
    ProcNetUnixEntry& row = snapshot.emplace_back();
    row.inode =
        static_cast<unsigned int>(std::strtoul(std::string(fields[inode_column]).c_str(), nullptr, 0));
    if (path_column < fields.size())
        row.path = fields[path_column];
}

bool ProcNetUnixSnapshot::lookup_sock_path(
    ProcNetUnixEntry& out, const std::string& path, std::size_t nth) const
{
    const auto found = m_by_path.find(path);
    if (found == m_by_path.end())
        return false;
    const std::size_t index = found->second;
    assert(index < snapshot.size());
    auto row = snapshot.begin() + static_cast<std::ptrdiff_t>(index);
    const auto has_path = [&](const ProcNetUnixEntry& each) { return each.path == path; };
    for (; nth > 0 && row != snapshot.end(); --nth)
        row = std::find_if(row + 1, snapshot.end(), has_path);
    if (row == snapshot.end())
        return false;
    out = *row;
    return true;
}

void ProcfsFileHandleSnapshot::take(const char* directory)
{
    m_processes.clear();
    m_by_inode.clear();
    const Directory proc(::opendir(directory));
    if (!proc)
        return;
    while (const dirent* entry = ::readdir(proc.get()))
        if (const unsigned long pid = whole_number(entry->d_name); pid != 0)
            take_process(directory + ("/" + std::string(entry->d_name)), static_cast<pid_t>(pid));
    index_sockets();
}

void ProcfsFileHandleSnapshot::take_process(const std::string& process, pid_t pid)
{
    Handles& handles = m_processes[pid];
    const Directory descriptors(::opendir((process + "/fd").c_str()));
    if (!descriptors)
        return;
    const int directory = ::dirfd(descriptors.get());
    while (const dirent* entry = ::readdir(descriptors.get())) {
        const bool is_number = whole_number(entry->d_name) != 0 || std::string_view(entry->d_name) == "0";
        if (!is_number || !is_link(directory, *entry))
            continue;
        char tmp[PATH_MAX];
        const ssize_t rd = ::readlinkat(directory, entry->d_name, tmp, sizeof tmp - 1);
        assert(rd < 0 || (size_t)rd < sizeof(tmp));
        handles.push_back(
            {std::atoi(entry->d_name), std::string(tmp, rd > 0 ? static_cast<std::size_t>(rd) : 0)});
    }
}

void ProcfsFileHandleSnapshot::index_sockets()
{
    for (const auto& [pid, handles] : m_processes)
        for (std::size_t i = 0; i < handles.size(); ++i)
            if (unsigned int inode = 0; socket_inode(handles[i].target, inode))
                m_by_inode[inode] = {pid, i};
}

bool ProcfsFileHandleSnapshot::lookup_socket_inode(
    pid_t& pid, ProcfsFileHandleSnapshotEntry& out, unsigned int inode) const
{
    const auto holder = m_by_inode.find(inode);
    if (holder == m_by_inode.end())
        return false;
    const auto& l2 = holder->second;
    pid = l2.first;
    const auto process = m_processes.find(pid);
    if (process == m_processes.end())
        return false;
    const Handles& handles = process->second;
    assert(l2.second < handles.size());
    out = handles[l2.second];
    return true;
}
