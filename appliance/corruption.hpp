// Damage to well-formed packets.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

// Damages a finished packet that has at least one entry:
//   short         three bytes are all that is left
//   empty-header  the header alone, whose count speaks of entries and whose table is nowhere
//   count         the count goes far beyond the table
//   table         the table lies outside of the packet
//   texts         names and values lie outside of the packet
//   no-nul        the last value runs to the end of the packet without its NUL
//   sequence      the number of the request is not repeated
//   command       the command word fills its field without a NUL
//   reserved      the first entry has something where nothing is to be
//   line-feed     the first name holds one
//   random        noise, other for every seed, with the flags of a reply
// False when there is no such kind; the packet is then as it was.
bool corrupt_packet(std::vector<unsigned char>& bytes, std::string_view kind, std::uint64_t seed);
