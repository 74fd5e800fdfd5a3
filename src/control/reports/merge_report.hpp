// Merging what an item has reported into its info list.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/comm.hpp"
#include "settings/infolist_item.hpp"

// What one reply may add to a listing, in bytes of text: a small packet can name one long text many times.
constexpr std::size_t REPORT_LIMIT = std::size_t{16} << 20;

// An entry of a reply that is no status.
struct OddEntry {
    char type;              // '>' a page, '?' or '=' a setting, 0 one that lies outside of the packet
    std::string_view name;  // without its letter; as long-lived as the reply
};

// Replaces what the list held under the reported keys; the lines of a key that is reported several times are
// joined. Returns the odd entries, in their order. None, with an unchanged list, when the reply adds more
// than it may.
std::optional<std::vector<OddEntry>> merge_report(InfoList& list, const comm_socket_v4_packet* reply);
