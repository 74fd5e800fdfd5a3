#include "zelmctl/replaced_file.hpp"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "control/items/item_directory.hpp"
#include "control/items/whole_file.hpp"
#include "zelmctl/options.hpp"

namespace {

// A device or a pipe, perhaps behind a link.
bool is_no_file(int directory, const std::string& name)
{
    struct stat state {};
    return ::fstatat(directory, name.c_str(), &state, 0) == 0 && !S_ISREG(state.st_mode);
}

// False with errno set.
bool replace(int directory, const std::string& name, const std::string& contents)
{
    ::umask(022);
    WholeFile file(directory, 0644);
    // Hidden, so that whoever collects the directory's files passes over it.
    const std::string beside = "." + name + "." + std::to_string(::getpid());
    ::unlinkat(directory, beside.c_str(), 0);  // what a run of that number has left
    if (!file || !write_whole(file.get(), contents) || !file.flush() || !file.publish(directory, beside))
        return false;
    if (::renameat(directory, beside.c_str(), directory, name.c_str()) == 0)
        return true;
    const int error = errno;
    ::unlinkat(directory, beside.c_str(), 0);
    errno = error;
    return false;
}

}  // namespace

Status replace_file(const std::string& path, const std::string& contents)
{
    const std::size_t slash = path.rfind('/');
    const std::string parent = slash == path.npos ? "." : path.substr(0, slash + 1);
    const Descriptor directory = open_item_directory(parent);
    const std::string name = path.substr(slash + 1);
    if (directory && is_no_file(directory.get(), name))
        return complain(path + ": no regular file");
    if (directory && replace(directory.get(), name, contents))
        return IS_SO;
    return complain(path + ": " + std::strerror(errno));
}
