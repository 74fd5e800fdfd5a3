// What a driver does wrong on purpose, so that whoever talks to it can be tried against it. It is told by
// settings of its item that begin with "sim "; they may change while it runs.
#pragma once

#include <cstdint>
#include <string>

#include "item_settings.hpp"

struct Misbehaviour {
    explicit Misbehaviour(const ItemSettings& settings);

    // At the start, and on its way out.
    bool no_accept = false;  // takes no connection, and its backlog is as short as can be
    bool ignore_sigterm = false;
    bool leave_socket = false;        // SIGTERM ends it, and the socket file stays
    std::uint64_t shutdown_ms = 150;  // what SIGTERM leaves to be done takes so long
    std::uint64_t exit_after_ms = 0;  // ends by itself, and the socket file stays; 0: never

    // On any request.
    bool never_answer = false;
    bool hang_up = false;      // closes the connection instead of answering
    bool hang_up_mid = false;  // sends an event first, then closes
    std::uint64_t answer_delay_ms = 0;
    std::uint64_t flagged_packets = 0;  // so many packets that are no reply come before the reply

    // On a "report".
    bool crash_on_report = false;
    bool odd_entries = false;           // pages, questions and the like among the entries
    std::uint64_t big_reply_bytes = 0;  // one value more, of this length
    std::string corrupt;                // one of the kinds of corruption.hpp
};
