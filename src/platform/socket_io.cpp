#include "platform/socket_io.hpp"

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <fcntl.h>
#include <linux/sockios.h>
#include <poll.h>
#include <sys/ioctl.h>

bool SocketAddress::set(const std::string& path)
{
    // The empty name would not be refused by the kernel: it stands for a socket outside of the files.
    if (path.empty()) {
        errno = ENOENT;
        return false;
    }
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
    return ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
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

namespace {

ssize_t receive_once(int socket, void* into, std::size_t size, int flags)
{
    return ::recv(socket, into, size, flags | MSG_DONTWAIT);
}

Received after_error()
{
    return errno == EAGAIN || errno == EWOULDBLOCK ? Received::NOTHING_YET : Received::HUNG_UP;
}

// Reading nothing means the end, or an empty packet, which has to go or it would be found for ever.
Received after_nothing(int socket)
{
    char none = 0;
    if (receive_once(socket, &none, sizeof none, 0) < 0)
        return after_error();
    pollfd state{socket, POLLRDHUP, 0};
    const bool ended = ::poll(&state, 1, 0) > 0 && !has_unread_bytes(socket);
    return ended ? Received::HUNG_UP : Received::NOTHING_YET;
}

}  // namespace

Received receive_packet(int socket, std::vector<unsigned char>& bytes)
{
    // The true length first: a packet that is read into less room than it needs is cut for good.
    char probe = 0;
    const ssize_t size = receive_once(socket, &probe, sizeof probe, MSG_PEEK | MSG_TRUNC);
    if (size < 0)
        return after_error();
    if (size == 0)
        return after_nothing(socket);
    bytes.resize(static_cast<std::size_t>(size));
    return receive_once(socket, bytes.data(), bytes.size(), 0) == size ? Received::PACKET : Received::HUNG_UP;
}

bool has_unread_bytes(int socket)
{
    int unread = 0;
    return ::ioctl(socket, SIOCINQ, &unread) == 0 && unread > 0;
}
