// One item's report, from the connect to the reply, in steps that never wait: many items are asked side by
// side.
#pragma once

#include <cstdint>
#include <poll.h>
#include <span>
#include <string>

#include "platform/comm.hpp"

// How an exchange stands, or has ended.
enum class ReportOutcome : std::uint8_t {
    UNDER_WAY,
    REPLIED,
    NO_SOCKET,          // at that path
    CONNECT_FAILED,     // while there was time left
    CONNECT_TIMED_OUT,  // when there was none, as there is of no limit
    TIMED_OUT,          // connected, and given up
    HUNG_UP,
};

// When the time of an item that is asked now ends, on the clock of monotonic_clock_us(). With 0 seconds it
// has no end, and with less it doesn't begin.
std::uint64_t report_deadline(int limit_s);

class ReportExchange {
public:
    // Takes the first steps to ask the item at the socket `path`. With a deadline of 0 the exchange ends as
    // soon as there is anything to wait for. A connection must be an open one to that path.
    ReportExchange(std::string path, std::uint64_t deadline_us, CommSocket connection = nullptr);

    // Takes the steps that can be taken by now.
    void proceed();

    const std::string& path() const { return m_path; }
    ReportOutcome outcome() const { return m_outcome; }
    bool has_ended() const { return m_outcome != ReportOutcome::UNDER_WAY; }
    const comm_socket_v4_packet* reply() const { return m_reply.get(); }  // of one that REPLIED

    // What to wait for before the next proceed(), and the time at which to call it whatever has happened.
    pollfd awaited() const;
    std::uint64_t due() const;

    // The connection, for another exchange or to close it; null when it was given up.
    CommSocket release_connection() { return std::move(m_connection); }

private:
    enum class Step : std::uint8_t { CONNECTING, SENDING, RECEIVING };

    void connect();
    void send();
    void receive();
    bool is_time_up() const;
    void give_up(ReportOutcome outcome);

    std::string m_path;
    std::uint64_t m_deadline;
    std::uint64_t m_next_attempt = 0;
    std::uint64_t m_between_attempts = 0;
    Step m_step;
    ReportOutcome m_outcome = ReportOutcome::UNDER_WAY;
    CommSocket m_connection;
    CommPacket m_reply;
};

// Waits until one of the exchanges can proceed, and lets all proceed that can. None of them has ended before.
void proceed_with_any(std::span<ReportExchange* const> exchanges);

// Lets the exchange proceed to its end.
void proceed_to_end(ReportExchange& exchange);
