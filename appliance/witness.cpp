#include "witness.hpp"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <string_view>
#include <type_traits>
#include <unistd.h>
#include <vector>

#include "platform/io.hpp"

namespace {

template <typename Value> void add(std::string& text, const std::string& name, const Value& value)
{
    text += name + "=";
    if constexpr (std::is_arithmetic_v<Value>)
        text += std::to_string(value);
    else
        text += value;
    text += '\n';
}

std::string link_target(const std::string& path)
{
    char target[PATH_MAX];
    const ssize_t length = ::readlink(path.c_str(), target, sizeof target);
    return length > 0 ? std::string(target, static_cast<std::size_t>(length)) : std::string();
}

std::string groups()
{
    std::vector<gid_t> ids(static_cast<std::size_t>(std::max(0, ::getgroups(0, nullptr))));
    const int count = ::getgroups(static_cast<int>(ids.size()), ids.data());
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += text.empty() ? "" : " ";
        text += std::to_string(ids[static_cast<std::size_t>(i)]);
    }
    return text;
}

void add_descriptors(std::string& text)
{
    const std::string path = "/proc/self/fd/";
    const Directory directory(::opendir(path.c_str()));
    if (!directory)
        return;
    const std::string own = std::to_string(::dirfd(directory.get()));
    while (const dirent* entry = ::readdir(directory.get()))
        if (entry->d_name[0] != '.' && entry->d_name != own)
            add(text, std::string("fd ") + entry->d_name, link_target(path + entry->d_name));
}

void add_status(std::string& text)
{
    const Descriptor status(::open("/proc/self/status", O_RDONLY | O_CLOEXEC));
    LineReader lines(status.get());
    for (std::string_view line; status && lines.next(line);)
        for (const char* name : {"Umask", "SigBlk", "SigIgn"})
            if (line.starts_with(std::string(name) + ":\t"))
                add(text, name, std::string(line.substr(line.find('\t') + 1)));
}

}  // namespace

std::string collect_witness(int argc, const char* const* argv)
{
    std::string text;
    for (int i = 0; i < argc; ++i)
        add(text, "argv[" + std::to_string(i) + "]", argv[i]);
    add(text, "uid", ::getuid());
    add(text, "euid", ::geteuid());
    add(text, "gid", ::getgid());
    add(text, "egid", ::getegid());
    add(text, "groups", groups());
    add(text, "pid", ::getpid());
    add(text, "ppid", ::getppid());
    add(text, "session", ::getsid(0));
    add(text, "cwd", link_target("/proc/self/cwd"));
    add_descriptors(text);
    add_status(text);
    return text;
}

bool write_witness(const std::string& path, const std::string& text)
{
    const std::string written = path + ".tmp";
    const Descriptor file(::open(written.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644));
    return file && write_whole(file.get(), text) && ::rename(written.c_str(), path.c_str()) == 0;
}
