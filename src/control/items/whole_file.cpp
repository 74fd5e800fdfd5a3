#include "control/items/whole_file.hpp"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

bool has_no_nameless_files(int error)
{
    return error == EOPNOTSUPP || error == EISDIR || error == EINVAL;
}

bool cannot_rename_exclusively(int error)
{
    return error == EINVAL || error == ENOSYS;
}

}  // namespace

WholeFile::WholeFile(int directory, std::string draft, mode_t mode)
    : m_directory(directory), m_file(::openat(directory, ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, mode))
{
    if (m_file || !has_no_nameless_files(errno))
        return;
    m_file.reset(::openat(directory, draft.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    if (m_file)
        m_draft = std::move(draft);
}

WholeFile::~WholeFile()
{
    if (!m_draft.empty())
        ::unlinkat(m_directory, m_draft.c_str(), 0);
}

bool WholeFile::flush()
{
    return ::fsync(m_file.get()) == 0;
}

bool WholeFile::publish(const std::string& name)
{
    if (!give_name(name))
        return false;
    m_draft.clear();
    return true;
}

bool WholeFile::give_name(const std::string& name)
{
    if (m_draft.empty()) {
        const std::string nameless = "/proc/self/fd/" + std::to_string(m_file.get());
        return ::linkat(AT_FDCWD, nameless.c_str(), m_directory, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
    }
    if (m_draft == name ||
        ::renameat2(m_directory, m_draft.c_str(), m_directory, name.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    return cannot_rename_exclusively(errno) &&
           ::renameat(m_directory, m_draft.c_str(), m_directory, name.c_str()) == 0;
}
