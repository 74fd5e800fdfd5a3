#include "driver/item_socket.hpp"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "platform/metadata.hpp"
#include "platform/socket_io.hpp"

namespace {

constexpr char SHORT_PATHS[] = "/run/item-sockets";
constexpr int LOCK_TRIES = 200;
constexpr useconds_t LOCK_INTERVAL_US = 10000;

bool remove_entry(const std::string& path)
{
    return ::unlink(path.c_str()) == 0 || errno == ENOENT;
}

// Drivers that come up at once look and bind one after the other. The wait is bounded, since anybody who may
// read the metadir can hold the lock.
Descriptor lock_for_binding(const std::string& metadir)
{
    Descriptor lock(::open(metadir.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    for (int tries = 0; lock && ::flock(lock.get(), LOCK_EX | LOCK_NB) != 0 && tries < LOCK_TRIES; ++tries)
        ::usleep(LOCK_INTERVAL_US);
    return lock;
}

// Whether anybody listens there. Only the kernel's refusal says that nobody does: a full backlog, or a socket
// of another kind, is served as well.
bool is_served(const std::string& entry)
{
    const Descriptor client(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    SocketAddress at;
    return at.set(entry) &&
           (::connect(client.get(), reinterpret_cast<const sockaddr*>(&at.address), at.length) == 0 ||
               (errno != ECONNREFUSED && errno != ENOENT));
}

bool bind_at(int socket, const std::string& path)
{
    SocketAddress at;
    return remove_entry(path) && at.set(path) &&
           ::bind(socket, reinterpret_cast<const sockaddr*>(&at.address), at.length) == 0;
}

}  // namespace

ItemSocket::~ItemSocket()
{
    struct stat there {};
    const bool ours = !m_entry.empty() && ::lstat(m_entry.c_str(), &there) == 0 &&
                      there.st_dev == m_made.st_dev && there.st_ino == m_made.st_ino;
    if (ours)
        ::unlink(m_entry.c_str());
    if (!m_target.empty())
        ::unlink(m_target.c_str());
}

// Drivers of several users share the directory, so that each may make its entry and remove only its own.
bool ItemSocket::bind_short(const std::string& entry)
{
    if (::mkdir(SHORT_PATHS, 01777) == 0)
        ::chmod(SHORT_PATHS, 01777);
    m_target = std::string(SHORT_PATHS) + "/" + std::to_string(::getpid());
    return bind_at(m_listener.get(), m_target) && ::symlink(m_target.c_str(), entry.c_str()) == 0;
}

bool ItemSocket::listen(const std::string& metadir, int backlog)
{
    const std::string entry = metadir + "/" + ACTIVE_SOCKET_ENTRY;
    const Descriptor lock = lock_for_binding(metadir);
    if (is_served(entry)) {
        errno = EADDRINUSE;
        return false;
    }
    m_listener.reset(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!m_listener || !remove_entry(entry))
        return false;
    const bool fits = entry.size() < sizeof sockaddr_un::sun_path;
    const bool bound = fits ? bind_at(m_listener.get(), entry) : bind_short(entry);
    if (!bound || ::lstat(entry.c_str(), &m_made) != 0)
        return false;
    m_entry = entry;
    return ::listen(m_listener.get(), backlog) == 0;
}

void ItemSocket::leave()
{
    m_entry.clear();
    m_target.clear();
}
