#include "control/replacement_file.hpp"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr char NAME[] = ".tmpup";

}  // namespace

// The lock of the settings file does not do: a rename replaces that file, and with it the lock, so that two
// runs can hold one each.
ReplacementFile::ReplacementFile(const std::string& metadir)
    : m_metadir(::open(metadir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    if (!m_metadir || lock_exclusively(m_metadir.get()) != 0)
        return;
    ::unlinkat(m_metadir.get(), NAME, 0);
    Descriptor file(::openat(m_metadir.get(), NAME, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file)
        return;
    m_named = true;
    m_stream.reset(::fdopen(file.get(), "wb"));
    if (m_stream)
        file.release();
}

ReplacementFile::~ReplacementFile()
{
    if (m_named)
        ::unlinkat(m_metadir.get(), NAME, 0);
}

bool ReplacementFile::replace(const std::string& path)
{
    std::FILE* file = m_stream.get();
    const bool written = std::fflush(file) == 0 && std::ferror(file) == 0 && ::fsync(::fileno(file)) == 0;
    const bool closed = std::fclose(m_stream.release()) == 0;
    if (!written || !closed || ::renameat(m_metadir.get(), NAME, AT_FDCWD, path.c_str()) != 0)
        return false;
    m_named = false;
    return true;
}
