// What a program was started with: the evidence for whoever started it.
#pragma once

#include <string>

// A line for each fact: "argv[i]=", "uid=", "euid=", "gid=", "egid=", "groups=", "pid=", "ppid=",
// "session=", "cwd=", "fd N=" and its target, and of /proc/self/status "Umask=", "SigBlk=" and "SigIgn=".
// To be called before anything is opened: it tells of every descriptor but its own.
std::string collect_witness(int argc, const char* const* argv);

// Puts the text at the path in one step. False with errno set.
bool write_witness(const std::string& path, const std::string& text);
