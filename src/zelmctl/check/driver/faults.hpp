// What is wrong with a driver by each rule, if more is to be done for that than to look at its first reply.
#pragma once

#include <string>

#include "zelmctl/check/driver/trial.hpp"

namespace faults {

// At its socket.
std::string up(Trial& trial);
std::string stays(Trial& trial);
std::string kind(Trial& trial);
std::string path(Trial& trial);
std::string found(Trial& trial);
std::string link(Trial& trial);
std::string closed_on_exec(Trial& trial);
std::string entry_rights(Trial& trial);
std::string lock(Trial& trial);
std::string lock_in_vain(Trial& trial);
std::string second_start(Trial& trial);
std::string dead_entry(Trial& trial);
std::string accepts(Trial& trial);

// Of a request.
std::string sequence(Trial& trial);
std::string flags(Trial& trial);
std::string survives_report(Trial& trial);
std::string keeps_connection(Trial& trial);
std::string report(Trial& trial);
std::string next_request(Trial& trial);
std::string no_request(Trial& trial);
std::string other_word(Trial& trial);
std::string set_reported(Trial& trial);
std::string set_unknown(Trial& trial);
std::string set_no_key(Trial& trial);
std::string set_no_value(Trial& trial);
std::string set_command(Trial& trial);
std::string set_odd_value(Trial& trial);

// Of what a report holds.
std::string nothing_set(Trial& trial);
std::string letters(Trial& trial);
std::string line_feeds(Trial& trial);
std::string manifest(Trial& trial);

// With clients of all kinds.
std::string silent(Trial& trial);
std::string short_packet(Trial& trial);
std::string split(Trial& trial);
std::string long_packet(Trial& trial);
std::string garbled(Trial& trial);
std::string flood(Trial& trial);
std::string hang_up(Trial& trial);
std::string at_once(Trial& trial);
std::string crowd(Trial& trial);
std::string longest_silent(Trial& trial);
std::string gone_clients(Trial& trial);
std::string growth(Trial& trial);

// On its way out.
std::string ending(Trial& trial);
std::string entry_removed(Trial& trial);
std::string nothing_left(Trial& trial);

}  // namespace faults
