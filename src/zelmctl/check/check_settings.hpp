// What the tools pass over in silence when they read an item's settings file.
#pragma once

#include "settings/settings_file.hpp"
#include "zelmctl/check/findings.hpp"

// False, with errno set, if the file can't be read.
bool check_settings(int file, ItemKind kind, Findings& findings);
