#include "zelm_driver/item_socket.hpp"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "platform/metadata.hpp"
#include "platform/socket_io.hpp"
#include "platform/time.hpp"

namespace zelm_driver {
namespace {

constexpr char SHARED_DIRECTORY[] = "/run/item-sockets/";
// What short paths begin with. Only root can make the shared directory, and nobody has to have made it yet.
constexpr std::array<std::string_view, 2> SHORT_PATHS = {SHARED_DIRECTORY, "/tmp/item-socket."};
constexpr int NAME_TRIES = 100;
constexpr std::uint64_t LOCK_WAIT_US = 2'000'000;
constexpr useconds_t LOCK_INTERVAL_US = 10000;

// What a dead driver has left, and the short path to which it leads, if it is a link to one.
bool remove_entry(const std::string& entry)
{
    std::array<char, PATH_MAX> target{};
    const ssize_t length = ::readlink(entry.c_str(), target.data(), target.size() - 1);
    const std::string_view leads_to(target.data(), length > 0 ? static_cast<std::size_t>(length) : 0);
    for (const std::string_view beginning : SHORT_PATHS)
        if (leads_to.starts_with(beginning) && leads_to.find('/', beginning.size()) == leads_to.npos)
            ::unlink(target.data());
    return ::unlink(entry.c_str()) == 0 || errno == ENOENT;
}

// Drivers that come up at once look and bind one after the other. The wait is bounded, since anybody who may
// read the metadir can hold the lock.
Descriptor lock_for_binding(const std::string& metadir)
{
    Descriptor lock(::open(metadir.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    const std::uint64_t limit = monotonic_clock_us() + LOCK_WAIT_US;
    while (lock && ::flock(lock.get(), LOCK_EX | LOCK_NB) != 0 && monotonic_clock_us() < limit)
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
    return at.set(path) && ::bind(socket, reinterpret_cast<const sockaddr*>(&at.address), at.length) == 0;
}

// A path that nobody can take beforehand, though anybody may make files there. Empty with errno set.
std::string unforeseen_path(std::string_view beginning)
{
    std::uint64_t number = 0;
    if (::getrandom(&number, sizeof number, 0) != sizeof number)
        return {};
    std::array<char, 2 * sizeof number + 1> name{};
    std::snprintf(name.data(), name.size(), "%016llx", static_cast<unsigned long long>(number));
    return std::string(beginning) + name.data();
}

}  // namespace

struct ItemSocket::Parts {
    // The kernel's table has to show the path whole. Drivers of several users share the directory of short
    // ones, so that each may make its entry and remove only its own.
    bool bind_short(const std::string& path)
    {
        if (::mkdir(SHARED_DIRECTORY, 01777) == 0)
            ::chmod(SHARED_DIRECTORY, 01777);
        for (const std::string_view beginning : SHORT_PATHS)
            for (int tries = 0; target.empty() && tries < NAME_TRIES; ++tries) {
                const std::string chosen = unforeseen_path(beginning);
                if (bind_at(listener.get(), chosen))
                    target = chosen;
                else if (errno != EADDRINUSE)
                    break;
            }
        return !target.empty() && ::symlink(target.c_str(), path.c_str()) == 0;
    }

    Descriptor listener;
    std::string entry;   // what to remove: in the metadir,
    std::string target;  // and where that leads, if it is a link
    struct stat made {};
};

ItemSocket::ItemSocket() : m_parts(std::make_unique<Parts>()) {}

ItemSocket::~ItemSocket()
{
    struct stat there {};
    const bool ours = !m_parts->entry.empty() && ::lstat(m_parts->entry.c_str(), &there) == 0 &&
                      there.st_dev == m_parts->made.st_dev && there.st_ino == m_parts->made.st_ino;
    if (ours)
        ::unlink(m_parts->entry.c_str());
    if (!m_parts->target.empty())
        ::unlink(m_parts->target.c_str());
}

bool ItemSocket::listen(const std::string& metadir, int backlog)
{
    const std::string entry = metadir + "/" + ACTIVE_SOCKET_ENTRY;
    const Descriptor lock = lock_for_binding(metadir);
    if (is_served(entry)) {
        errno = EADDRINUSE;
        return false;
    }
    Descriptor& listener = m_parts->listener;
    listener.reset(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!listener || !remove_entry(entry))
        return false;
    const bool fits = entry.size() < sizeof sockaddr_un::sun_path;
    const bool bound = fits ? bind_at(listener.get(), entry) : m_parts->bind_short(entry);
    if (!bound || ::lstat(entry.c_str(), &m_parts->made) != 0)
        return false;
    m_parts->entry = entry;
    return ::listen(listener.get(), backlog) == 0;
}

int ItemSocket::get() const
{
    return m_parts->listener.get();
}

void ItemSocket::leave()
{
    m_parts->entry.clear();
    m_parts->target.clear();
}

}  // namespace zelm_driver
