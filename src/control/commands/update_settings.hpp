// The command "set": tells a running item its new settings, and rewrites its settings file.
#pragma once

#include <string>

#include "schema/consume_json.hpp"

// Applies the pairs in order. A key that begins with "+", "-" or "&" is a live command: it is sent to a
// running item and never stored; neither is an empty key. An empty value removes its key. 1 when `item` is
// empty, and 0 in every other case: failures are told by their messages alone.
int do_set(const std::string& item, const SettingValues& settings);
