// A running driver: one socket, many clients, one thread.
#pragma once

#include <cstdint>
#include <deque>
#include <poll.h>
#include <vector>

#include "driver_state.hpp"
#include "odd_socket.hpp"
#include "platform/io.hpp"

class Driver {
public:
    explicit Driver(DriverState state) : m_state(std::move(state)) {}

    // Listens in the metadir and from then on heeds SIGTERM and SIGINT. False with errno set.
    bool open(const std::string& metadir);

    // Serves until it is told to end.
    void serve();

private:
    struct Outgoing {
        std::vector<unsigned char> bytes;
        std::uint64_t due_us;
    };
    struct Client {
        Descriptor socket;
        std::deque<Outgoing> outgoing;
        std::uint64_t heard_us;
        bool hang_up = false;  // once everything is sent
        bool gone = false;
    };

    std::vector<pollfd> waited_for() const;
    std::uint64_t next_due_us() const;
    void remove_gone();
    bool make_room();
    void accept_clients();
    void lose(Client& client);
    void receive_requests(Client& client);
    void send_due(Client& client);
    void end_if_told();

    DriverState m_state;
    OddSocket m_socket;
    Descriptor m_signals;
    std::vector<Client> m_clients;
    bool m_ended = false;
};
