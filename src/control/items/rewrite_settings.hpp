// The new contents of a settings file: what it held, and what a set changes.
#pragma once

#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

struct SettingChange {
    std::string key;
    std::optional<std::string> value;  // none removes the key; so does an empty one, unless lines are WHOLE
};
using SettingChanges = std::vector<SettingChange>;

// What a set has always done to lines: those with nothing behind their "=" go, and a file that had no setting
// gets no "#multiline", without which a value of several lines keeps only its last. Or what loses nothing.
enum class Lines : std::uint8_t { AS_IN_A_SET, WHOLE };

// Copies the open settings file `source` to `out` without the keys that the changes name, and appends the
// changes. Lines that no change names keep their places; without "#multiline" in the source the kept keys are
// folded to their last values and written behind what else there is. False with errno set on a read error;
// the error indicator of `out` tells of write errors.
bool rewrite_settings(int source, std::FILE* out, const SettingChanges& changes, Lines lines);
