#include "odd_socket.hpp"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/metadata.hpp"
#include "platform/socket_io.hpp"

namespace {

Descriptor bound_socket(const std::string& path, int kind = SOCK_SEQPACKET)
{
    Descriptor socket(::socket(AF_UNIX, kind | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    SocketAddress at;
    const bool bound =
        at.set(path) && ::bind(socket.get(), reinterpret_cast<const sockaddr*>(&at.address), at.length) == 0;
    return bound ? std::move(socket) : Descriptor();
}

void remove_dead(const std::string& entry)
{
    const Descriptor client(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    SocketAddress at;
    if (at.set(entry) &&
        ::connect(client.get(), reinterpret_cast<const sockaddr*>(&at.address), at.length) != 0 &&
        errno == ECONNREFUSED)
        ::unlink(entry.c_str());
}

constexpr useconds_t LOCK_WAIT_US = 2000000;

// As long as it takes, or with a limit: a driver that looks after its socket by itself need not try often.
void wait_for_lock(const std::string& metadir, bool for_ever)
{
    const Descriptor lock(::open(metadir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (for_ever)
        lock_exclusively(lock.get());
    else if (::flock(lock.get(), LOCK_EX | LOCK_NB) != 0)
        ::usleep(LOCK_WAIT_US);
}

bool is_there(const std::string& entry)
{
    struct stat state {};
    return ::lstat(entry.c_str(), &state) == 0;
}

// Where the library isn't to bind it.
bool is_bound_amiss(const std::string& entry, std::string_view oddity)
{
    const bool fits = entry.size() < sizeof sockaddr_un::sun_path;
    return fits ? oddity == "stream" || oddity == "relative" || oddity == "moved" || oddity == "unlocked"
                : oddity == "no-link";
}

}  // namespace

OddSocket::~OddSocket()
{
    if (!m_entry.empty())
        ::unlink(m_entry.c_str());
}

bool OddSocket::listen(const std::string& metadir, int backlog, std::string_view oddity)
{
    const std::string entry = metadir + "/" + ACTIVE_SOCKET_ENTRY;
    if (oddity == "never-over-dead" && is_there(entry)) {
        errno = EADDRINUSE;
        return false;
    }
    if (oddity == "over-served")
        ::unlink(entry.c_str());
    if (oddity == "lock-for-ever")
        wait_for_lock(metadir, true);
    if (is_bound_amiss(entry, oddity))
        return bind_amiss(entry, oddity) && ::listen(m_amiss.get(), backlog) == 0;
    if (!m_socket.listen(metadir, backlog))
        return false;
    if (oddity == "inherited")
        ::fcntl(m_socket.get(), F_SETFD, 0);
    return oddity != "writable" || ::chmod(entry.c_str(), 0777) == 0;
}

bool OddSocket::bind_amiss(const std::string& entry, std::string_view oddity)
{
    const std::string metadir = entry.substr(0, entry.rfind('/'));
    if (oddity != "unlocked")
        wait_for_lock(metadir, false);
    remove_dead(entry);
    if (oddity == "moved" && !bind_moved(entry))
        return false;
    if (oddity == "relative" && ::chdir(metadir.c_str()) != 0)
        return false;
    if (oddity != "moved")
        m_amiss = bound_socket(oddity == "relative" ? ACTIVE_SOCKET_ENTRY : entry,
            oddity == "stream" ? SOCK_STREAM : SOCK_SEQPACKET);
    if (m_amiss)
        m_entry = entry;
    return static_cast<bool>(m_amiss);
}

// The row of the kernel's table is that of a socket whose file is no more, and the entry that of another.
bool OddSocket::bind_moved(const std::string& entry)
{
    const std::string elsewhere = entry + ".moved";
    m_moved = bound_socket(entry);
    if (!m_moved || ::unlink(entry.c_str()) != 0)
        return false;
    m_amiss = bound_socket(elsewhere);
    return m_amiss && ::rename(elsewhere.c_str(), entry.c_str()) == 0;
}

int OddSocket::get() const
{
    return m_amiss ? m_amiss.get() : m_socket.get();
}

void OddSocket::leave()
{
    m_entry.clear();
    m_socket.leave();
}
