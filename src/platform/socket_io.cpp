#include "platform/socket_io.hpp"

#include <cerrno>
#include <cstring>
#include <fcntl.h>

bool SocketAddress::set(const std::string& path)
{
    std::string reachable = path;
    if (path.size() >= sizeof address.sun_path) {
        const std::size_t slash = path.rfind('/');
        const std::string parent = slash == std::string::npos ? "." : path.substr(0, slash + 1);
        directory.reset(::open(parent.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        if (!directory)
            return false;
        reachable = "/proc/self/fd/" + std::to_string(directory.get()) + "/" +
                    (slash == std::string::npos ? path : path.substr(slash + 1));
    }
    if (reachable.size() >= sizeof address.sun_path) {
        errno = ENAMETOOLONG;
        return false;
    }
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, reachable.c_str(), reachable.size() + 1);
    length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + reachable.size() + 1);
    return true;
}

namespace {

ssize_t send_once(int socket, const std::vector<unsigned char>& bytes)
{
    ssize_t sent = -1;
    do
        sent = ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    while (sent < 0 && errno == EINTR);
    return sent;
}

// The limit for everybody is tried first and the privileged call, which may go beyond it, second.
bool grow_send_buffer(int socket, std::size_t bytes)
{
    const int wanted = static_cast<int>(bytes + 4096);
    int has = 0;
    socklen_t size = sizeof has;
    ::setsockopt(socket, SOL_SOCKET, SO_SNDBUF, &wanted, sizeof wanted);
    if (::getsockopt(socket, SOL_SOCKET, SO_SNDBUF, &has, &size) == 0 && has >= wanted)
        return true;
    return ::setsockopt(socket, SOL_SOCKET, SO_SNDBUFFORCE, &wanted, sizeof wanted) == 0;
}

}  // namespace

int send_packet(int socket, const std::vector<unsigned char>& bytes)
{
    ssize_t sent = send_once(socket, bytes);
    if (sent < 0 && errno == EMSGSIZE && bytes.size() < (std::size_t{1} << 30) &&
        grow_send_buffer(socket, bytes.size()))
        sent = send_once(socket, bytes);
    if (sent >= 0)
        return 1;
    return errno == EAGAIN || errno == EWOULDBLOCK ? 0 : -1;
}

Received receive_packet(int socket, std::vector<unsigned char>& bytes)
{
    char probe = 0;
    ssize_t size = -1;
    // The true length first: a packet that is read into less room than it needs is cut for good.
    do
        size = ::recv(socket, &probe, sizeof probe, MSG_PEEK | MSG_TRUNC | MSG_DONTWAIT);
    while (size < 0 && errno == EINTR);
    if (size < 0)
        return errno == EAGAIN || errno == EWOULDBLOCK ? Received::NOTHING_YET : Received::HUNG_UP;
    if (size == 0)
        return Received::HUNG_UP;
    bytes.resize(static_cast<std::size_t>(size));
    do
        size = ::recv(socket, bytes.data(), bytes.size(), MSG_DONTWAIT);
    while (size < 0 && errno == EINTR);
    return size > 0 ? Received::PACKET : Received::HUNG_UP;
}
