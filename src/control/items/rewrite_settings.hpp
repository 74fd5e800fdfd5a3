// The new contents of a settings file: what it held, and what a set changes.
#pragma once

#include <cstdio>

#include "schema/consume_json.hpp"

// Copies the open settings file `source` to `out` without the keys that the pairs name, and appends the
// pairs. Lines that no pair names keep their places; without "#multiline" in the source the kept keys are
// folded to their last values and written behind what else there is. False with errno set on a read error;
// the error indicator of `out` tells of write errors.
bool rewrite_settings(int source, std::FILE* out, const SettingValues& settings);
