// Telling a running item its new settings over its socket.
#pragma once

#include <string>

#include "control/items/rewrite_settings.hpp"
#include "platform/time.hpp"

// Sends each change in a "set" of its own, live commands and empty keys included, and waits up to 30 seconds
// for each answer. Failures are silent: the settings file is updated all the same. Whether each was answered.
// Behind the deadline no more is sent.
bool send_live_update(
    const std::string& socket_path, const SettingChanges& changes, std::uint64_t deadline_us = NO_DEADLINE);
