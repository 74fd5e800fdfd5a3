// The kernel's tables of Unix sockets and of open descriptors, as they were at one moment.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <utility>
#include <vector>

struct ProcNetUnixEntry {
    std::string path;  // empty when the row has none; cut at its first blank
    unsigned int inode = static_cast<unsigned int>(-1);
};

// The table of Unix sockets.
class ProcNetUnixSnapshot {
public:
    // Reads the table from a file of the form of /proc/net/unix, whose header line names the columns. A
    // file that can't be opened, or whose header lacks a column, leaves the table empty.
    void take(const char* file);

    // The first row with that path, or one of those behind it, counted from 0. False when there is none.
    bool lookup_sock_path(ProcNetUnixEntry& out, const std::string& path, std::size_t nth = 0) const;

private:
    void add_row(std::string_view line, std::size_t inode_column, std::size_t path_column);

    std::vector<ProcNetUnixEntry> snapshot;
    std::map<std::string, std::size_t> m_by_path;
};

struct ProcfsFileHandleSnapshotEntry {
    int descriptor = -1;
    std::string target;  // empty if the link could not be read
};

// The open descriptors of every process that lets itself be seen.
class ProcfsFileHandleSnapshot {
public:
    // Reads a directory of the form of /proc.
    void take(const char* directory);

    // The holder of a socket: of several processes the one with the highest id, and its last descriptor.
    // False when nobody holds it.
    bool lookup_socket_inode(pid_t& pid, ProcfsFileHandleSnapshotEntry& out, unsigned int inode) const;

private:
    using Handles = std::vector<ProcfsFileHandleSnapshotEntry>;

    void take_process(const std::string& process, pid_t pid);
    void index_sockets();

    std::map<pid_t, Handles> m_processes;
    std::map<unsigned int, std::pair<pid_t, std::size_t>> m_by_inode;
};
