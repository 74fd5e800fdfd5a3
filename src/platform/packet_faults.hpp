// Packets as nobody should send them, for whoever holds a driver against the layout: what is wrong with one
// that it sent, and some to send to it.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace packet {

// What the layout says of a reply, from its front on.
enum class Part : std::uint8_t { SIZE, MAGIC, LENGTH, COMMAND, TABLE, COUNT, TEXTS, ENDS, RESERVED };

// What is wrong with that part, and what a client makes of it; empty if nothing is. Nothing may be wrong with
// the parts above it.
std::string fault(Part part, std::span<const unsigned char> bytes);

// Requests whose counts, offsets and texts lead out of the packet, and noise of the header's size and more,
// the same with each call.
std::vector<std::vector<unsigned char>> garbled_requests();

// A request for a report with so many bytes behind it that are no part of it.
std::vector<unsigned char> overlong_request(std::size_t more);

}  // namespace packet
