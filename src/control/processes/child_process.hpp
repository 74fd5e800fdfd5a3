// What the processes that the tool forks have in common.
#pragma once

#include <string>
#include <sys/stat.h>
#include <sys/types.h>
#include <vector>

using Arguments = std::vector<std::string>;

// Executes the program named by the first argument; on failure the process ends with status 1, silently.
[[noreturn]] void execute(const Arguments& arguments);

// Makes the descriptor 0, 1 or 2 the same as `fd`, or ends the process with status 1.
void make_standard(int fd, int standard);

// "/dev/null" for reading and writing, close-on-exec. The process ends with status 1 if there is none.
int open_null();

// Lets no descriptor but the standard ones reach the program that the process will execute, so that a
// driver that runs for months holds open nothing of whoever called the tool.
void keep_standard_descriptors_only();

// Takes on the owner and the group of the file, and no other group. Null, or the call that failed with errno
// set.
const char* become_owner(const struct stat& file);

// Forks a child that executes the arguments with "/dev/null" as its standard descriptors, as the owner of the
// file if one is given. Nobody waits for it. False when the fork failed.
bool fork_quietly(const Arguments& arguments, const struct stat* owned = nullptr);
