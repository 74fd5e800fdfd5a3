#include "control/items/replacement_file.hpp"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr char NAME[] = ".tmpup";

// A live run has the name for as long as two calls take.
constexpr int ATTEMPTS = 100;
constexpr useconds_t BETWEEN_ATTEMPTS_US = 1000;

bool is_directory(int directory, const char* name)
{
    struct stat state {};
    return ::fstatat(directory, name, &state, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(state.st_mode);
}

std::string draft_name()
{
    return std::string(NAME) + "." + std::to_string(::getpid());
}

}  // namespace

ReplacementFile::ReplacementFile(int metadir, int item_directory)
    : m_metadir(metadir), m_item_directory(item_directory), m_file(metadir, draft_name(), 0666)
{
    if (!m_file || is_directory(metadir, NAME))
        return;
    Descriptor copy(::fcntl(m_file.get(), F_DUPFD_CLOEXEC, 0));
    m_stream.reset(copy ? ::fdopen(copy.get(), "wb") : nullptr);
    if (m_stream)
        copy.release();
}

bool ReplacementFile::replace(const std::string& item)
{
    const bool written = std::fflush(m_stream.get()) == 0 && std::ferror(m_stream.get()) == 0;
    const bool closed = std::fclose(m_stream.release()) == 0;
    return written && closed && m_file.flush() && take_name() && exchange(item);
}

// Whoever has had the name for long is no live run.
bool ReplacementFile::take_name()
{
    for (int attempt = 0; !m_file.publish(NAME); ++attempt) {
        if (errno != EEXIST || attempt == 2 * ATTEMPTS)
            return false;
        if (attempt >= ATTEMPTS && ::unlinkat(m_metadir, NAME, 0) != 0 && errno != ENOENT)
            return false;
        ::usleep(BETWEEN_ATTEMPTS_US);
    }
    return true;
}

// A plain rename would bring an item back that has been deleted or renamed in the meantime.
bool ReplacementFile::exchange(const std::string& item)
{
    if (::renameat2(m_metadir, NAME, m_item_directory, item.c_str(), RENAME_EXCHANGE) == 0)
        return remove_old(item);
    const bool cannot_exchange = errno == EINVAL || errno == ENOSYS;
    if (cannot_exchange && ::renameat(m_metadir, NAME, m_item_directory, item.c_str()) == 0)
        return true;
    const int error = errno;
    ::unlinkat(m_metadir, NAME, 0);
    errno = error;
    return false;
}

// What stood in the item's place may be a directory by now, which no set may take away, and the metadir's
// owner may have slipped something else under the name.
bool ReplacementFile::remove_old(const std::string& item)
{
    int error = EPERM;
    if (is_in_place(item)) {
        if (::unlinkat(m_metadir, NAME, 0) == 0 || errno == ENOENT)
            return true;
        error = errno;
    }
    if (::renameat2(m_metadir, NAME, m_item_directory, item.c_str(), RENAME_EXCHANGE) == 0)
        ::unlinkat(m_metadir, NAME, 0);
    errno = error;
    return false;
}

// Also true when the item has been deleted or renamed since.
bool ReplacementFile::is_in_place(const std::string& item) const
{
    struct stat ours {};
    struct stat there {};
    if (::fstat(m_file.get(), &ours) != 0)
        return false;
    if (::fstatat(m_item_directory, item.c_str(), &there, AT_SYMLINK_NOFOLLOW) != 0)
        return errno == ENOENT;
    return there.st_dev == ours.st_dev && there.st_ino == ours.st_ino;
}
