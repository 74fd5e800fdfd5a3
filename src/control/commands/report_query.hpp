// What the commands tell of asking items for their live status.
#pragma once

#include <string>

#include "control/reports/report_exchange.hpp"
#include "settings/infolist_item.hpp"

// Merges what came of an exchange that has ended into the list, with warnings of odd entries: what the item
// reports replaces what the list held under the same key. 1 when a reply was merged, 0 when none came, -1
// when connecting failed after the item's time had run out.
int merge_reply(InfoList& list, const ReportExchange& exchange);

// Sends "report" to the item at the socket `path`, tells how it goes when that is wanted, and merges the
// reply. Returns what merge_reply does.
//
// The connection stays open for a further query of the same item, until it is closed.
int do_list_send_command(const char* path, InfoList& list);
void close_report_connection();
