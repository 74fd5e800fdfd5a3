// Which settings an item has, as far as its driver's table tells.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "check/nearest_name.hpp"
#include "schema/schemas.hpp"

// The table of a driver word; "channel" and the empty word mean a channel's. Null for a word that has none.
const Schema* find_schema(std::string_view driver);

// The driver words that have a table.
std::vector<KnownName> driver_words();

// The keys of a settings file, and for each the rows that it is of. Keys that every item has are of none.
using KnownSettings = std::map<std::string, std::vector<const Row*>, std::less<>>;
KnownSettings known_settings(const Schema& schema);
