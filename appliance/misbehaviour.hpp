// What a driver does wrong on purpose, so that whoever talks to it can be tried against it. It is told by
// settings of its item that begin with "sim "; they may change while it runs.
#pragma once

#include <cstdint>
#include <string>

#include "item_settings.hpp"

struct Misbehaviour {
    explicit Misbehaviour(const ItemSettings& settings);

    // At the start, and on its way out.
    std::uint64_t start_ms = 0;  // it listens so much later
    std::string socket;          // one of the oddities of odd_socket.hpp
    bool leave_child = false;    // a process of its own that outlives it
    bool no_accept = false;      // takes no connection, and its backlog is as short as can be
    bool ignore_sigterm = false;
    bool leave_socket = false;        // SIGTERM ends it, and the socket file stays
    std::uint64_t shutdown_ms = 150;  // what SIGTERM leaves to be done takes so long
    std::uint64_t exit_after_ms = 0;  // ends by itself, and the socket file stays; 0: never

    // With its clients.
    std::uint64_t clients = 0;      // serves so many at a time, and lets others wait; 0: as many as may be
    std::string crowd;              // where there are more: "shut-out" new ones, or let "oldest" go
    bool keep_connections = false;  // of clients that have gone
    std::string dies_of;            // one of the packets of deadly_packet.hpp

    // On any request.
    bool answer_everything = false;  // also what is no request
    std::string unanswered;          // one of the requests of answer.cpp
    bool never_answer = false;
    bool hang_up = false;        // closes the connection instead of answering
    bool hang_up_mid = false;    // sends an event first, then closes
    bool hang_up_after = false;  // closes once it has answered
    std::uint64_t answer_delay_ms = 0;
    std::uint64_t flagged_packets = 0;  // so many packets that are no reply come before the reply

    // On a "report".
    bool crash_on_report = false;
    bool odd_entries = false;           // pages, questions and the like among the entries
    std::uint64_t big_reply_bytes = 0;  // one value more, of this length
    std::uint64_t leak_bytes = 0;       // that it never gives back
    std::string corrupt;                // one of the kinds of corruption.hpp
};
