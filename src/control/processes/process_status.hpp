// What the kernel tells of a single process under /proc, to whoever asks.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

// The first bytes of a file under /proc; none when it can't be read.
std::optional<std::string> read_start(const std::string& path, std::size_t size);

// Where the process's name ends, which stands in parentheses and may hold ")" itself. The kernel closes it
// with the last one. Uptimes end it at the first, as front ends have always been given them.
enum class NameEnd { FIRST, LAST };

// A number of the line in /proc/PID/stat, "id (name) state parent ...", whose fields are counted from 1. 0
// when there is no such field, none when the line can't be read.
std::optional<long long> status_number(pid_t process, int field, NameEnd name_end);

// 0 when there is no such process.
pid_t parent_of(pid_t process);

// The real, effective and saved user id of a process of a directory of the form of /proc; none when it has
// gone. The owner of that directory would be root for one that can't be dumped.
std::vector<uid_t> users_of(const char* proc, pid_t process);
