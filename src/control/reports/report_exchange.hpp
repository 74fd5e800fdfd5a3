// One item's report, from the connect to the reply, in steps that never wait: many items are asked side by
// side.
#pragma once

#include <cstdint>
#include <poll.h>
#include <span>
#include <string>

#include "platform/comm.hpp"

// The item's time, per_item_timeout, runs from the construction, and a time is on the clock of
// monotonic_clock_us(). With 0 the exchange lasts until the item answers or hangs up, and below 0 it ends as
// soon as there is anything to wait for.
class ReportExchange {
public:
    // Takes the first steps to ask the item at the socket `path`. A connection must be an open one to that
    // path.
    explicit ReportExchange(std::string path, CommSocket connection = nullptr);

    // Takes the steps that can be taken by now.
    void proceed();

    const std::string& path() const { return m_path; }
    bool has_ended() const { return m_step == Step::ENDED; }

    // Once it has ended: 1 when a reply has come, 0 when none has, -1 when connecting failed after the item's
    // time had run out.
    int result() const { return m_result; }
    const comm_socket_v4_packet* reply() const { return m_reply.get(); }

    // What to wait for before the next proceed(), and the time at which to call it whatever has happened.
    pollfd awaited() const;
    std::uint64_t due() const;

    // The connection, for another exchange or to close it; null when it was given up.
    CommSocket release_connection() { return std::move(m_connection); }

private:
    enum class Step { CONNECTING, SENDING, RECEIVING, ENDED };

    void connect();
    void fail_to_connect();
    void send();
    void receive();
    bool is_time_up() const;
    void end(int result);
    void give_up();

    std::string m_path;
    std::uint64_t m_deadline;
    std::uint64_t m_next_attempt = 0;
    std::uint64_t m_between_attempts = 0;
    Step m_step = Step::CONNECTING;
    int m_result = 0;
    CommSocket m_connection;
    CommPacket m_reply;
};

// Waits until one of the exchanges can proceed, and lets all proceed that can. None of them has ended before.
void proceed_with_any(std::span<ReportExchange* const> exchanges);
