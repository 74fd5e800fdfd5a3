// Owners of what the kernel lends, directories with their parents, and lines of a file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <dirent.h>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

// Owns one file descriptor; -1 is none. A close never changes errno.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int fd) : m_fd(fd) {}
    Descriptor(Descriptor&& other) noexcept : m_fd(std::exchange(other.m_fd, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        reset(std::exchange(other.m_fd, -1));
        return *this;
    }
    ~Descriptor() { reset(); }

    explicit operator bool() const { return m_fd >= 0; }
    int get() const { return m_fd; }
    int release() { return std::exchange(m_fd, -1); }
    void reset(int fd = -1);

private:
    int m_fd = -1;
};

// For the start of a program: a caller may have closed some of the standard descriptors. They lead nowhere
// then, so that no file takes such a number and gets messages. Ends the process with status 1 if that can't
// be.
void open_standard_descriptors();

struct DirectoryClose {
    void operator()(DIR* directory) const { ::closedir(directory); }
};
using Directory = std::unique_ptr<DIR, DirectoryClose>;

// Makes a directory and its missing parents with `mode`, less the umask. 0 on success, also when it is
// there already; -1 with errno set. `flags` chooses among extras of the library: -1 is the plain form.
int mkdir_p(const char* path, unsigned int mode, int flags);

// Opens a file that a neighbour may have put there, for reading: a link in the last place is not followed,
// nothing is waited for, and only a regular file of at most `size_limit` bytes is taken. None with errno set
// otherwise: ELOOP for a link, EISDIR, EFBIG, and EINVAL for what else is no file.
Descriptor open_regular_file(int directory, const char* path, std::int64_t size_limit);

// Where a link leads that was opened itself, with O_PATH; empty when that can't be read.
std::string read_link(int link);

// Brings the names in a directory to disk. False with errno set; a directory that may not be read or that
// the file system can't flush has been flushed as well as can be.
bool flush_directory(int directory);

// flock(2), waiting as long as it takes. 0 on success, -1 with errno set.
int lock_exclusively(int fd);

// Adds to the text all that the descriptor gives from where it stands. False with errno set when that makes
// the text longer than `limit` bytes, EFBIG, and on a read error; what came before has then been added.
bool read_to_end(int fd, std::size_t limit, std::string& text);

// The same of a regular file, with a call of the kernel less: only its end gives less than is asked for.
bool read_file_to_end(int file, std::size_t limit, std::string& text);

// Writes all of the bytes. False with errno set.
bool write_whole(int fd, std::string_view bytes);

// Reads a file line by line, each line at most 1022 bytes: a longer one comes in pieces, and each piece
// counts as a line of its own. Any byte but the line feed may stand in a line.
class LineReader {
public:
    static constexpr std::size_t LINE_LIMIT = 1022;

    explicit LineReader(int fd) : m_fd(fd) {}

    // The next line without its line feed, valid until the next call. False at the end of the file and
    // on a read error, which failed() tells apart.
    bool next(std::string_view& line);
    bool failed() const { return m_failed; }

private:
    bool fill();

    int m_fd;
    bool m_failed = false;
    bool m_ended = false;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    char m_buffer[4096];
};

// The same, and tells where in the file each line stands.
class NumberedLines {
public:
    explicit NumberedLines(int fd) : m_lines(fd) {}

    bool next(std::string_view& line);
    bool failed() const { return m_lines.failed(); }

    std::size_t number() const { return m_number; }  // of the file's line, from 1 up
    bool is_rest() const { return m_is_rest; }       // of a line of more than 1022 bytes

private:
    LineReader m_lines;
    std::size_t m_number = 0;
    bool m_is_rest = false;
    bool m_goes_on = false;
};

// Takes the first line off a text that isn't empty, cut as the reader cuts it, and returns it without its
// line feed.
std::string_view cut_line(std::string_view& text);
