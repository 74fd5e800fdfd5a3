#include "driver/zelm_driver.hpp"

#include <cerrno>
#include <climits>
#include <csignal>
#include <poll.h>
#include <string_view>
#include <sys/signalfd.h>
#include <sys/socket.h>

#include "driver/item_socket.hpp"
#include "platform/metadata.hpp"
#include "platform/packet.hpp"
#include "platform/socket_io.hpp"

namespace zelm {

namespace {

constexpr int BACKLOG_OF_SERVER = 64;
constexpr std::size_t MOST_CLIENTS = 64;

// Reads the next request once its last reply is sent.
struct Client {
    Descriptor socket;
    std::vector<unsigned char> unsent = {};
    bool gone = false;
};

}  // namespace

struct DriverServer::Connections {
    AnswerReport report;
    TakeSet set;
    ItemSocket listener = {};
    Descriptor signals = {};
    std::vector<Client> clients = {};

    std::vector<pollfd> waited_for() const;
    void accept_all();
    void attend(Client& client);
    std::vector<unsigned char> answer(const packet::Reader& request);
};

// The signals, the listener, then the clients in their order.
std::vector<pollfd> DriverServer::Connections::waited_for() const
{
    std::vector<pollfd> waited = {
        {signals.get(), POLLIN, 0},
        {clients.size() < MOST_CLIENTS ? listener.get() : -1, POLLIN, 0},
    };
    for (const Client& client : clients)
        waited.push_back(
            {client.socket.get(), static_cast<short>(client.unsent.empty() ? POLLIN : POLLOUT), 0});
    return waited;
}

void DriverServer::Connections::accept_all()
{
    while (clients.size() < MOST_CLIENTS) {
        Descriptor accepted(::accept4(listener.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (!accepted)
            return;
        clients.push_back({.socket = std::move(accepted)});
    }
}

void DriverServer::Connections::attend(Client& client)
{
    std::vector<unsigned char> bytes;
    if (client.unsent.empty()) {
        const Received received = receive_packet(client.socket.get(), bytes);
        client.gone = received == Received::HUNG_UP;
        const packet::Reader request(bytes);
        if (received != Received::PACKET || (request.flags() & packet::FLAG_REQUEST) == 0)
            return;
        client.unsent = answer(request);
    }
    const int sent = send_packet(client.socket.get(), client.unsent);
    client.gone = sent < 0;
    if (sent > 0)
        client.unsent.clear();
}

std::vector<unsigned char> DriverServer::Connections::answer(const packet::Reader& request)
{
    const std::string_view command = request.command();
    packet::Writer writer;
    writer.begin(command, 0, request.sequence());
    if (command == "report")
        for (const auto& [key, text] : report())
            writer.add(key.c_str(), text.c_str());
    if (command == "set") {
        const char* const key = request.argument(0).value;
        const char* const value = request.argument(1).value;
        if (key && *key != '\0' && value)
            set(key, value);
    }
    writer.finish();
    return writer.bytes();
}

DriverServer::DriverServer(AnswerReport report, TakeSet set)
    : m_connections(new Connections{.report = std::move(report), .set = std::move(set)})
{
}

DriverServer::~DriverServer() = default;

bool DriverServer::listen(const std::string& settings_path)
{
    sigset_t ending;
    sigemptyset(&ending);
    sigaddset(&ending, SIGTERM);
    sigaddset(&ending, SIGINT);
    errno = ::pthread_sigmask(SIG_BLOCK, &ending, nullptr);
    if (errno != 0)
        return false;
    m_connections->signals.reset(::signalfd(-1, &ending, SFD_CLOEXEC | SFD_NONBLOCK));
    char metadir[PATH_MAX + 1];
    if (metadata_v4_file_to_metadir(metadir, sizeof metadir, settings_path.c_str()) != 0) {
        errno = ENAMETOOLONG;
        return false;
    }
    return m_connections->signals && mkdir_p(metadir, 0777, -1) == 0 &&
           m_connections->listener.listen(metadir, BACKLOG_OF_SERVER);
}

bool DriverServer::serve()
{
    for (;;) {
        std::vector<pollfd> waited = m_connections->waited_for();
        if (::poll(waited.data(), waited.size(), -1) < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        if (waited[0].revents)
            return true;
        for (std::size_t i = 2; i < waited.size(); ++i)
            if (waited[i].revents)
                m_connections->attend(m_connections->clients[i - 2]);
        std::erase_if(m_connections->clients, [](const Client& client) { return client.gone; });
        if (waited[1].revents)
            m_connections->accept_all();
    }
}

}  // namespace zelm
