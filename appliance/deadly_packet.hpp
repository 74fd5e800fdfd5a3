// Packets of which a driver may die.
#pragma once

#include <string_view>
#include <vector>

// Whether the packet is of that kind:
//   short    has no whole header
//   split    the same, and begins as a request does
//   long     has more than 64 KB
//   garbled  its entries lead out of the packet
bool is_deadly(const std::vector<unsigned char>& bytes, std::string_view kind);
