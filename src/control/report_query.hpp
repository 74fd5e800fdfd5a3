// Asking a running item for its live status over its socket.
#pragma once

#include "schema/infolist_item.hpp"

// Sends "report" to the item at the socket `path` and merges the reply into the list: what the item
// reports replaces what the list held under the same key. 1 when a reply was merged, 0 when none came,
// -1 when connecting failed after the item's time had run out.
//
// The connection stays open for a further query of the same item; a null path closes it.
int do_list_send_command(const char* path, InfoList& list);
