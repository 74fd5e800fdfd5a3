// Telling a running item its new settings over its socket.
#pragma once

#include <string>

#include "schema/consume_json.hpp"

// Sends each pair in a "set" of its own, live commands and empty keys included, and waits up to 30 seconds
// for each answer. Failures are silent: the settings file is updated all the same. Whether each was answered.
bool send_live_update(const std::string& socket_path, const SettingValues& settings);
