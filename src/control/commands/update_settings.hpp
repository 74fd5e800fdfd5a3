// The command "set": tells a running item its new settings, and rewrites its settings file.
#pragma once

#include <string>

#include "control/items/rewrite_settings.hpp"
#include "schema/consume_json.hpp"

// Applies the pairs in order. A key that begins with "+", "-" or "&" is a live command: it is sent to a
// running item and never stored; neither is an empty key. An empty value removes its key. 1 when `item` is
// empty, and 0 in every other case: failures are told by their messages alone.
int do_set(const std::string& item, SettingValues settings);

struct SettingsUpdate {
    bool is_stored = false;  // what went wrong has been said otherwise
    bool is_told = false;    // whether a driver has answered each change
};

// The same for an item in the open directory of the run's role, which is not flushed. Tells a running item
// only if it is to be told by some time.
SettingsUpdate update_settings_or_complain(int directory, const std::string& item,
    const SettingChanges& changes, Lines lines, std::optional<std::uint64_t> told_by);
