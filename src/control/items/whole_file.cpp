#include "control/items/whole_file.hpp"

#include <cerrno>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool has_no_nameless_files(int error)
{
    return error == EOPNOTSUPP || error == EISDIR || error == EINVAL;
}

// Some file systems have no links, some sandboxes allow none, and where nothing is mounted at /proc a file
// without a name can't be reached.
bool refuses_links(int error)
{
    return error == EPERM || error == EACCES || error == EOPNOTSUPP || error == ENOSYS || error == ENOENT;
}

bool copy_contents_and_owner(int source, int target)
{
    struct stat state {};
    std::string contents;
    return ::lseek(source, 0, SEEK_SET) == 0 && read_file_to_end(source, contents.max_size() - 1, contents) &&
           write_whole(target, contents) && ::fstat(source, &state) == 0 &&
           (::fchown(target, state.st_uid, state.st_gid) == 0 || errno == EPERM) && ::fsync(target) == 0;
}

// On a slow disk, whoever waits for the name may have taken this run for dead.
bool is_still_called(int directory, const std::string& name, int file)
{
    struct stat ours {};
    struct stat there {};
    errno = EBUSY;
    return ::fstat(file, &ours) == 0 &&
           ::fstatat(directory, name.c_str(), &there, AT_SYMLINK_NOFOLLOW) == 0 &&
           there.st_dev == ours.st_dev && there.st_ino == ours.st_ino;
}

}  // namespace

WholeFile::WholeFile(int directory, mode_t mode)
    : m_mode(mode), m_file(::openat(directory, ".", O_TMPFILE | O_RDWR | O_CLOEXEC, mode))
{
    if (m_file || !has_no_nameless_files(errno) || ::faccessat(directory, ".", W_OK, AT_EACCESS) != 0)
        return;
    m_file.reset(::memfd_create("settings", MFD_CLOEXEC));
    m_is_in_memory = true;
}

bool WholeFile::flush()
{
    return ::fsync(m_file.get()) == 0;
}

bool WholeFile::publish(int directory, const std::string& name)
{
    if (!m_is_in_memory && link(directory, name))
        return true;
    return (m_is_in_memory || refuses_links(errno)) && copy(directory, name);
}

bool WholeFile::link(int directory, const std::string& name) const
{
    const std::string nameless = "/proc/self/fd/" + std::to_string(m_file.get());
    return ::linkat(AT_FDCWD, nameless.c_str(), directory, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

bool WholeFile::copy(int directory, const std::string& name) const
{
    const Descriptor copy(::openat(directory, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, m_mode));
    if (!copy)
        return false;
    if (!copy_contents_and_owner(m_file.get(), copy.get()) || !is_still_called(directory, name, copy.get())) {
        const int error = errno;
        ::unlinkat(directory, name.c_str(), 0);
        errno = error;
        return false;
    }
    return true;
}
