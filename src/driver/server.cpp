#include "zelm_driver/server.hpp"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <map>
#include <string_view>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <vector>

#include "platform/io.hpp"
#include "platform/metadata.hpp"
#include "platform/packet.hpp"
#include "platform/socket_io.hpp"
#include "zelm_driver/item_socket.hpp"

namespace zelm_driver {
namespace {

constexpr int BACKLOG = 128;
constexpr std::size_t CLIENT_LIMIT = 256;
// All clients and the listener: whoever has asked is answered before anybody is taken for idle.
constexpr std::size_t EVENTS_AT_ONCE = CLIENT_LIMIT + 1;

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
    struct Client {
        Descriptor connection;
        std::uint64_t heard = 0;  // when, as a number that grows
    };

    bool watch(int descriptor, std::uint32_t events, int operation = EPOLL_CTL_ADD) const
    {
        epoll_event event{};
        event.events = events;
        event.data.fd = descriptor;
        return ::epoll_ctl(watched.get(), operation, descriptor, &event) == 0;
    }

    // Told only of each arrival: a backlog that has to wait would keep the loop busy.
    bool watch_arrivals(int operation) const { return watch(socket.get(), EPOLLIN | EPOLLET, operation); }

    void answer_client(int descriptor, Item& item)
    {
        const auto client = clients.find(descriptor);
        if (client == clients.end())
            return;
        client->second.heard = ++now;
        if (!serve_client(descriptor, item))
            clients.erase(client);
    }

    bool accept_client()
    {
        Descriptor client(::accept4(socket.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (!client)
            return errno == EINTR || errno == ECONNABORTED || (errno == EMFILE && make_room(1));
        make_room(CLIENT_LIMIT);
        const int descriptor = client.get();
        if (watch(descriptor, EPOLLIN))
            clients.emplace(descriptor, Client{std::move(client), ++now});
        return true;
    }

    // Where there are so many, the one that has been silent longest goes, or nobody else would ever get in.
    bool make_room(std::size_t limit)
    {
        if (clients.size() < limit)
            return false;
        const auto heard_before = [](const auto& one, const auto& other) {
            return one.second.heard < other.second.heard;
        };
        clients.erase(std::min_element(clients.begin(), clients.end(), heard_before));
        return true;
    }

    // So many at a time that none goes before it was answered once. What has to stay in the backlog is tried
    // again with the next event.
    void accept_clients()
    {
        for (int i = 0; i < BACKLOG; ++i)
            if (!accept_client())
                return;
        watch_arrivals(EPOLL_CTL_MOD);
    }

    ItemSocket socket;
    Descriptor watched;
    std::map<int, Client> clients;
    std::uint64_t now = 0;
};

Server::Server() : m_parts(std::make_unique<Parts>()) {}

Server::~Server() = default;

bool Server::open(const std::string& settings_path)
{
    const std::string metadir = metadir_of_item(settings_path);
    if (metadir.empty() || mkdir_p(metadir.c_str(), 0777, -1) != 0)
        return false;
    m_parts->watched.reset(::epoll_create1(EPOLL_CLOEXEC));
    return m_parts->watched && m_parts->socket.listen(metadir, BACKLOG) &&
           m_parts->watch_arrivals(EPOLL_CTL_ADD);
}

int Server::descriptor() const
{
    return m_parts->watched.get();
}

void Server::answer(Item& item)
{
    std::array<epoll_event, EVENTS_AT_ONCE> events{};
    const int count = ::epoll_wait(descriptor(), events.data(), static_cast<int>(events.size()), 0);
    for (int i = 0; i < count; ++i)
        m_parts->answer_client(events[static_cast<std::size_t>(i)].data.fd, item);
    m_parts->accept_clients();
}

}  // namespace zelm_driver
