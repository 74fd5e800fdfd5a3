#include "control/items/replacement_file.hpp"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::string_view METADIR_SUFFIX = ".metadir";
constexpr std::string_view SUFFIX = ".tmpup";
constexpr char NAME_IN_METADIR[] = ".tmpup";

// A live run has the name for as long as two calls take.
constexpr int ATTEMPTS = 100;
constexpr useconds_t BETWEEN_ATTEMPTS_US = 1000;

// Shorter than the metadir's, so that it is a name however long the item's is.
std::string name_beside(const std::string& metadir_name)
{
    return metadir_name.substr(0, metadir_name.size() - METADIR_SUFFIX.size()).append(SUFFIX);
}

// Replacements used to have their name there. What can't be removed is a directory, and in the way.
bool remove_from_metadir(int metadir)
{
    return ::unlinkat(metadir, NAME_IN_METADIR, 0) == 0 || errno != EISDIR;
}

bool cannot_exchange(int error)
{
    return error == EINVAL || error == ENOSYS || error == EPERM || error == EOPNOTSUPP;
}

}  // namespace

bool is_replacement_name(std::string_view name)
{
    return name.size() > SUFFIX.size() + 1 && name.starts_with('.') && name.ends_with(SUFFIX);
}

void remove_left_replacement(int item_directory, const std::string& metadir_name)
{
    ::unlinkat(item_directory, name_beside(metadir_name).c_str(), 0);
}

ReplacementFile::ReplacementFile(int item_directory, int metadir, const std::string& metadir_name)
    : m_directory(item_directory), m_name(name_beside(metadir_name)), m_file(metadir, 0666)
{
    if (!m_file || !remove_from_metadir(metadir))
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
    for (int attempt = 0; !m_file.publish(m_directory, m_name); ++attempt) {
        if (errno != EEXIST || attempt == 2 * ATTEMPTS)
            return false;
        if (attempt >= ATTEMPTS && ::unlinkat(m_directory, m_name.c_str(), 0) != 0 && errno != ENOENT)
            return false;
        ::usleep(BETWEEN_ATTEMPTS_US);
    }
    return true;
}

// A plain rename would bring an item back that has been deleted or renamed in the meantime.
bool ReplacementFile::exchange(const std::string& item)
{
    if (swap(item))
        return remove_old(item);
    if (cannot_exchange(errno) && ::renameat(m_directory, m_name.c_str(), m_directory, item.c_str()) == 0)
        return true;
    const int error = errno;
    ::unlinkat(m_directory, m_name.c_str(), 0);
    errno = error;
    return false;
}

bool ReplacementFile::swap(const std::string& item) const
{
    return ::renameat2(m_directory, m_name.c_str(), m_directory, item.c_str(), RENAME_EXCHANGE) == 0;
}

// What stood in the item's place may be a directory by now, which no set may take away.
bool ReplacementFile::remove_old(const std::string& item)
{
    if (::unlinkat(m_directory, m_name.c_str(), 0) == 0 || errno == ENOENT)
        return true;
    const int error = errno;
    if (swap(item))
        ::unlinkat(m_directory, m_name.c_str(), 0);
    errno = error;
    return false;
}
