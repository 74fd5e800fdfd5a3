// Whether a driver's manifest can be read, which the tools don't say.
#pragma once

#include "zelmctl/check/findings.hpp"

// Finds the first line that makes the manifest unreadable. False, with errno set, if the file can't be read.
bool check_manifest(int file, Findings& findings);
