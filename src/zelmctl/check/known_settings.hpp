// Which settings an item has, as far as its driver's table tells.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "schema/schemas.hpp"
#include "zelmctl/check/nearest_name.hpp"

// The driver words that have a table. One that is a driver all the same has no document to check by.
std::vector<KnownName> driver_words();
bool has_no_document(std::string_view driver, ItemKind kind);

// The keys of a settings file, and for each the members that it is of. Keys that every item has are of none.
using KnownSettings = std::map<std::string, std::vector<MemberFace>, std::less<>>;
KnownSettings known_settings(const Schema& schema);

// Whether the key is one of those by which any driver gives access.
bool is_secret(std::string_view key);

// Whether the text of a key that the tools read as a number is none.
bool counts_as_off(std::string_view key, const std::string& text);

// The keys of a settings file, by the names that their members have in a document, too.
std::vector<KnownName> names_of_keys(const Schema& schema, const KnownSettings& known);
