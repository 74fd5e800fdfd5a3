// What the tools pass over in silence when they read an item's settings file.
#pragma once

#include "zelmctl/check/findings.hpp"
#include "settings/settings_file.hpp"

// False, with errno set, if the file can't be read.
bool check_settings(int file, ItemKind kind, Findings& findings);
