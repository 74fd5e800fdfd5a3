// The kernel's own word on Unix sockets. The text of /proc/net/unix can be forged, since a socket's name may
// hold a line feed and what looks like a row behind it; what the kernel answers here can't.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <vector>

// A file by the numbers that the kernel keeps of it. Both are cut to what it tells of a socket's.
struct FileNumbers {
    std::uint32_t inode = 0;
    std::uint32_t device = 0;

    bool operator==(const FileNumbers&) const = default;
};

// A socket that is bound in the file system, and the file that it is bound at.
struct BoundSocket {
    std::uint32_t inode;
    FileNumbers file;
    bool is_connection;  // which a listener has made, and which may end while the listener stays
};

// All of them, in the order of their inodes; none where the kernel offers no such answer.
std::optional<std::vector<BoundSocket>> bound_sockets();

// The numbers that lstat(2) gives a file.
FileNumbers told_numbers(const struct stat& file);

// The numbers that the kernel itself knows the file by, as far as it says them, and else those that are told:
// layered file systems, and those with several volumes, tell others to lstat(2).
FileNumbers kernel_numbers(const std::string& path, FileNumbers told);
