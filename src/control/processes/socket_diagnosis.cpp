#include "control/processes/socket_diagnosis.hpp"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <linux/sock_diag.h>
#include <linux/unix_diag.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <sys/sysmacros.h>

#include "platform/io.hpp"

namespace {

struct Request {
    nlmsghdr header;
    unix_diag_req body;
};

// Device numbers as the kernel keeps them, which are not those that it hands to programs.
std::uint32_t kernel_device(unsigned long major, unsigned long minor)
{
    return static_cast<std::uint32_t>(major << 20 | minor);
}

void add_socket(const nlmsghdr& header, std::vector<BoundSocket>& sockets)
{
    if (header.nlmsg_type != SOCK_DIAG_BY_FAMILY || header.nlmsg_len < NLMSG_LENGTH(sizeof(unix_diag_msg)))
        return;
    const auto* socket = static_cast<const unix_diag_msg*>(NLMSG_DATA(&header));
    const auto* attribute = reinterpret_cast<const rtattr*>(socket + 1);
    for (auto left = static_cast<int>(header.nlmsg_len - NLMSG_LENGTH(sizeof *socket));
         RTA_OK(attribute, left); attribute = RTA_NEXT(attribute, left))
        if (attribute->rta_type == UNIX_DIAG_VFS && RTA_PAYLOAD(attribute) >= sizeof(unix_diag_vfs)) {
            const auto* file = static_cast<const unix_diag_vfs*>(RTA_DATA(attribute));
            sockets.push_back({socket->udiag_ino, {file->udiag_vfs_ino, file->udiag_vfs_dev},
                socket->udiag_state == TCP_ESTABLISHED});
        }
}

// Takes the next messages. False at the end and on a refusal, which is_complete tells apart.
bool receive(int diagnosis, std::vector<BoundSocket>& sockets, bool& is_complete)
{
    alignas(nlmsghdr) char block[std::size_t{16} * 1024];
    const ssize_t got = ::recv(diagnosis, block, sizeof block, MSG_DONTWAIT);
    auto left = static_cast<unsigned int>(std::max<ssize_t>(got, 0));
    if (left == 0)
        return false;
    for (const auto* header = reinterpret_cast<const nlmsghdr*>(block); NLMSG_OK(header, left);
         header = NLMSG_NEXT(header, left)) {
        is_complete = header->nlmsg_type == NLMSG_DONE;
        if (is_complete || header->nlmsg_type == NLMSG_ERROR)
            return false;
        add_socket(*header, sockets);
    }
    return true;
}

// Calls back with each line of a file under /proc.
template <typename Take> void for_each_line(const std::string& path, const Take& take)
{
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    LineReader lines(file.get());
    for (std::string_view line; file && lines.next(line);)
        take(std::string(line));
}

}  // namespace

std::optional<std::vector<BoundSocket>> bound_sockets()
{
    const Descriptor diagnosis(::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_SOCK_DIAG));
    Request request{};
    request.header.nlmsg_len = sizeof request;
    request.header.nlmsg_type = SOCK_DIAG_BY_FAMILY;
    request.header.nlmsg_flags = NLM_F_REQUEST | NLM_F_DUMP;
    request.body.sdiag_family = AF_UNIX;
    request.body.udiag_states = ~0U;
    request.body.udiag_show = UDIAG_SHOW_VFS;
    std::vector<BoundSocket> sockets;
    bool is_complete = false;
    if (diagnosis && ::send(diagnosis.get(), &request, sizeof request, 0) == sizeof request)
        while (receive(diagnosis.get(), sockets, is_complete)) {
        }
    if (!is_complete)
        return {};
    std::sort(sockets.begin(), sockets.end(),
        [](const BoundSocket& one, const BoundSocket& other) { return one.inode < other.inode; });
    return sockets;
}

FileNumbers told_numbers(const struct stat& file)
{
    return {static_cast<std::uint32_t>(file.st_ino), kernel_device(major(file.st_dev), minor(file.st_dev))};
}

FileNumbers kernel_numbers(const std::string& path, FileNumbers told)
{
    FileNumbers numbers = told;
    const Descriptor file(::open(path.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
    if (!file)
        return numbers;
    std::string mount;
    for_each_line("/proc/self/fdinfo/" + std::to_string(file.get()), [&](const std::string& line) {
        if (line.starts_with("ino:"))
            numbers.inode = static_cast<std::uint32_t>(std::strtoull(line.c_str() + 4, nullptr, 10));
        if (line.starts_with("mnt_id:\t"))
            mount = line.substr(8) + " ";
    });
    // "mount parent major:minor ..."
    for_each_line("/proc/self/mountinfo", [&](const std::string& line) {
        if (mount.empty() || !line.starts_with(mount))
            return;
        char* at = nullptr;
        std::strtoul(line.c_str() + mount.size(), &at, 10);
        const unsigned long major = std::strtoul(at, &at, 10);
        if (*at == ':')
            numbers.device = kernel_device(major, std::strtoul(at + 1, nullptr, 10));
    });
    return numbers;
}
