#include "zelmctl/check/input_file.hpp"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// A file without a name, of what comes from the pipe.
Descriptor copy_of(int pipe, std::int64_t limit)
{
    const std::optional<std::string> bytes = contents_of(pipe, limit);
    Descriptor copy(::memfd_create("input", MFD_CLOEXEC));
    if (!bytes || !copy || !write_whole(copy.get(), *bytes) || ::lseek(copy.get(), 0, SEEK_SET) != 0)
        return {};
    return copy;
}

}  // namespace

Descriptor open_input(const std::string& name, std::int64_t limit)
{
    const bool is_named = name != "-";
    const int opened = is_named ? ::open(name.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)
                                : ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    Descriptor file(opened);
    struct stat state {};
    if (!file || ::fstat(file.get(), &state) != 0)
        return {};
    const bool is_regular = S_ISREG(state.st_mode);
    if (!is_named && !is_regular)
        return copy_of(file.get(), limit);
    if (is_regular && state.st_size <= limit)
        return file;
    errno = is_regular ? EFBIG : S_ISDIR(state.st_mode) ? EISDIR : EINVAL;
    return {};
}

std::optional<std::string> contents_of(int file, std::int64_t limit)
{
    std::string bytes;
    if (!read_to_end(file, static_cast<std::size_t>(limit), bytes))
        return std::nullopt;
    return bytes;
}

const char* reason_of_input()
{
    return errno == EINVAL ? "No regular file" : std::strerror(errno);
}
