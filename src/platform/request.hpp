// What the requests of all clients have in common, and which packets answer them.
#pragma once

#include "platform/comm.hpp"

// A packet that has been begun with the command word, ready for its arguments; null on failure.
CommPacket begin_request(const char* command_word);

// A received packet may also be something that the item sends unasked.
bool is_reply(const comm_socket_v4_packet& packet);
