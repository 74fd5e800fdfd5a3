#include "platform/io.hpp"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/text.hpp"

void Descriptor::reset(int fd)
{
    if (m_fd >= 0) {
        const int kept = errno;
        ::close(m_fd);
        errno = kept;
    }
    m_fd = fd;
}

void open_standard_descriptors()
{
    pollfd standard[] = {{STDIN_FILENO, 0, 0}, {STDOUT_FILENO, 0, 0}, {STDERR_FILENO, 0, 0}};
    if (::poll(standard, std::size(standard), 0) <= 0)
        return;
    for (const pollfd& descriptor : standard)
        if ((descriptor.revents & POLLNVAL) != 0 && ::open("/dev/null", O_RDWR) != descriptor.fd)
            ::_exit(1);
}

int mkdir_p(const char* path, unsigned int mode, int /*flags*/)
{
    std::string partial(path);
    for (std::size_t slash = partial.find('/', 1); slash != std::string::npos;
         slash = partial.find('/', slash + 1)) {
        partial[slash] = '\0';
        if (::mkdir(partial.c_str(), mode) != 0 && errno != EEXIST)
            return -1;
        partial[slash] = '/';
    }
    if (::mkdir(path, mode) == 0)
        return 0;
    struct stat there {};
    return errno == EEXIST && ::stat(path, &there) == 0 && S_ISDIR(there.st_mode) ? 0 : -1;
}

Descriptor open_regular_file(int directory, const char* path, std::int64_t size_limit)
{
    Descriptor file(::openat(directory, path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat state {};
    if (!file || ::fstat(file.get(), &state) != 0)
        return {};
    if (S_ISREG(state.st_mode) && state.st_size <= size_limit)
        return file;
    if (S_ISREG(state.st_mode))
        errno = EFBIG;
    else
        errno = S_ISDIR(state.st_mode) ? EISDIR : EINVAL;
    return {};
}

std::string read_link(int link)
{
    char tmp[PATH_MAX];
    const ssize_t rd = ::readlinkat(link, "", tmp, sizeof tmp - 1);
    assert(rd < 0 || (size_t)rd < sizeof(tmp));
    return std::string(tmp, static_cast<std::size_t>(std::max<ssize_t>(rd, 0)));
}

bool flush_directory(int directory)
{
    const Descriptor opened(::openat(directory, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return !opened || ::fsync(opened.get()) == 0 || errno == EINVAL || errno == EROFS;
}

int lock_exclusively(int fd)
{
    return static_cast<int>(TEMP_FAILURE_RETRY(::flock(fd, LOCK_EX)));
}

namespace {

// The compiler has all pages of the block touched, whatever comes: a large one costs a short run more than
// calls.
bool read_blocks(int fd, std::size_t limit, bool ends_short, std::string& text)
{
    char block[std::size_t{16} * 1024];
    while (text.size() <= limit) {
        const ssize_t got = TEMP_FAILURE_RETRY(::read(fd, block, sizeof block));
        if (got <= 0)
            return got == 0;
        text.append(block, static_cast<std::size_t>(got));
        if (ends_short && static_cast<std::size_t>(got) < sizeof block)
            return true;
    }
    errno = EFBIG;
    return false;
}

}  // namespace

bool read_to_end(int fd, std::size_t limit, std::string& text)
{
    return read_blocks(fd, limit, false, text);
}

bool read_file_to_end(int file, std::size_t limit, std::string& text)
{
    return read_blocks(file, limit, true, text);
}

bool write_whole(int fd, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t put = TEMP_FAILURE_RETRY(::write(fd, bytes.data(), bytes.size()));
        if (put < 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(put));
    }
    return true;
}

std::string_view cut_line(std::string_view& text)
{
    const std::size_t limit = std::min(text.size(), LineReader::LINE_LIMIT);
    const std::size_t feed = text.substr(0, limit).find('\n');
    const std::string_view line = text.substr(0, feed == std::string_view::npos ? limit : feed + 1);
    text.remove_prefix(line.size());
    return chomp(line);
}

// Moves what is left to the front and reads behind it. False when nothing more comes.
bool LineReader::fill()
{
    if (m_ended)
        return false;
    std::memmove(m_buffer, m_buffer + m_begin, m_end - m_begin);
    m_end -= m_begin;
    m_begin = 0;
    const ssize_t got = TEMP_FAILURE_RETRY(::read(m_fd, m_buffer + m_end, sizeof m_buffer - m_end));
    m_failed = got < 0;
    m_ended = got <= 0;
    if (!m_ended)
        m_end += static_cast<std::size_t>(got);
    return !m_ended;
}

bool LineReader::next(std::string_view& line)
{
    const auto left = [this] { return std::string_view(m_buffer + m_begin, m_end - m_begin); };
    while (left().size() < LINE_LIMIT && left().find('\n') == std::string_view::npos && fill()) {
    }
    std::string_view text = left();
    if (text.empty())
        return false;
    line = cut_line(text);
    m_begin = m_end - text.size();
    return true;
}

bool NumberedLines::next(std::string_view& line)
{
    if (!m_lines.next(line))
        return false;
    m_is_rest = m_goes_on;
    m_goes_on = line.size() == LineReader::LINE_LIMIT;
    m_number += m_is_rest ? 0 : 1;
    return true;
}
