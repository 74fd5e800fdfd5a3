// Merging what an item has reported into its info list.
#pragma once

#include <cstddef>

#include "platform/comm.hpp"
#include "settings/infolist_item.hpp"

// What one reply may add to a listing, in bytes of text: a small packet can name one long text many times.
constexpr std::size_t REPORT_LIMIT = std::size_t{16} << 20;

// Replaces what the list held under the reported keys; the lines of a key that is reported several times are
// joined. Odd entries are warned about. False, with one warning and an unchanged list, when the reply adds
// more than it may.
bool merge_report(InfoList& list, const comm_socket_v4_packet* reply, const char* path);
