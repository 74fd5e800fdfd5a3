// Which of the known names somebody may have meant.
#pragma once

#include <span>
#include <string>
#include <string_view>

struct KnownName {
    std::string name;
    std::string place;  // what the name leads to, and what is suggested; the name itself if empty
};

// How many letters are to be changed, added, taken away or swapped with the next one.
std::size_t distance(std::string_view one, std::string_view other);

// "; did you mean ...?" with the nearest of the names, or nothing if none is near. Of equally near ones that
// whose place is nearest to `place`.
std::string suggestion(std::string_view name, std::string_view place, std::span<const KnownName> known);
