#include "zelm_driver/server.hpp"

#include <array>
#include <cerrno>
#include <climits>
#include <map>
#include <poll.h>
#include <string_view>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <vector>

#include "platform/io.hpp"
#include "platform/metadata.hpp"
#include "platform/packet.hpp"
#include "platform/signals.hpp"
#include "platform/socket_io.hpp"
#include "zelm_driver/item_socket.hpp"

namespace zelm_driver {
namespace {

constexpr int BACKLOG = 128;
constexpr std::size_t CLIENT_LIMIT = 256;
constexpr std::size_t EVENTS_AT_ONCE = 64;

class PackedReport : public Report {
public:
    explicit PackedReport(packet::Writer& writer) : m_writer(writer) {}

    bool status(const std::string& key, const std::string& value) override { return add('*', key, value); }
    bool other_status(const std::string& key, const std::string& value) override
    {
        return add('&', key, value);
    }

private:
    bool add(char letter, const std::string& key, const std::string& value)
    {
        return m_writer.add((letter + key).c_str(), value.c_str());
    }

    packet::Writer& m_writer;
};

void pass_on_setting(Item& item, const packet::Reader& request)
{
    const char* const key = request.argument(0).value;
    const char* const value = request.argument(1).value;
    if (key && value && *key != '\0')
        item.set(key, value);
}

std::vector<unsigned char> reply_to(const packet::Reader& request, Item& item)
{
    const std::string_view command = request.command();
    packet::Writer writer;
    writer.begin(command, 0, request.sequence());
    PackedReport report(writer);
    if (command == "report")
        item.report(report);
    else if (command == "set")
        pass_on_setting(item, request);
    writer.finish();
    return writer.bytes();
}

// One packet at a time, so that no client keeps the others waiting. False when the client has gone, or has
// to.
bool serve_client(int client, Item& item)
{
    std::vector<unsigned char> bytes;
    const Received received = receive_packet(client, bytes);
    if (received != Received::PACKET)
        return received == Received::NOTHING_YET;
    const packet::Reader request(bytes);
    const bool asks = (request.flags() & packet::FLAG_REQUEST) != 0;
    return !asks || send_packet(client, reply_to(request, item)) > 0;
}

std::string metadir_of_item(const std::string& settings_path)
{
    char metadir[PATH_MAX + 1];
    if (metadata_v4_file_to_metadir(metadir, sizeof metadir, settings_path.c_str()) == 0)
        return metadir;
    errno = ENAMETOOLONG;
    return {};
}

}  // namespace

struct Server::Parts {
    bool watch(int descriptor, std::uint32_t events) const
    {
        epoll_event event{};
        event.events = events;
        event.data.fd = descriptor;
        return ::epoll_ctl(watched.get(), EPOLL_CTL_ADD, descriptor, &event) == 0;
    }

    // What stays in the backlog is tried again when a client has come or gone.
    void accept_clients()
    {
        while (clients.size() < CLIENT_LIMIT) {
            Descriptor client(::accept4(socket.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
            if (!client && errno != EINTR && errno != ECONNABORTED)
                return;
            const int descriptor = client.get();
            if (client && watch(descriptor, EPOLLIN))
                clients.emplace(descriptor, std::move(client));
        }
    }

    ItemSocket socket;
    Descriptor watched;
    std::map<int, Descriptor> clients;
};

Server::Server() : m_parts(std::make_unique<Parts>()) {}

Server::~Server() = default;

bool Server::open(const std::string& settings_path)
{
    const std::string metadir = metadir_of_item(settings_path);
    if (metadir.empty() || mkdir_p(metadir.c_str(), 0777, -1) != 0)
        return false;
    m_parts->watched.reset(::epoll_create1(EPOLL_CLOEXEC));
    // Told only of each arrival: a backlog that has to wait would keep the loop busy.
    return m_parts->watched && m_parts->socket.listen(metadir, BACKLOG) &&
           m_parts->watch(m_parts->socket.get(), EPOLLIN | EPOLLET);
}

int Server::descriptor() const
{
    return m_parts->watched.get();
}

void Server::answer(Item& item)
{
    std::array<epoll_event, EVENTS_AT_ONCE> events{};
    const int count = ::epoll_wait(descriptor(), events.data(), static_cast<int>(events.size()), 0);
    for (int i = 0; i < count; ++i) {
        const auto client = m_parts->clients.find(events[static_cast<std::size_t>(i)].data.fd);
        if (client != m_parts->clients.end() && !serve_client(client->first, item))
            m_parts->clients.erase(client);
    }
    m_parts->accept_clients();
}

bool serve(const std::string& settings_path, Item& item)
{
    const Descriptor signals = hold_back_end_signals();
    Server server;
    if (!signals || !server.open(settings_path))
        return false;
    std::array<pollfd, 2> waited{{{signals.get(), POLLIN, 0}, {server.descriptor(), POLLIN, 0}}};
    while (waited[0].revents == 0) {
        ::poll(waited.data(), waited.size(), -1);
        server.answer(item);
    }
    return true;
}

}  // namespace zelm_driver
