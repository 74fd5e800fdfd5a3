// An item's settings, as its driver knows them.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

// From key to value; the lines of a value are parted by line feeds.
using ItemSettings = std::map<std::string, std::string, std::less<>>;

// Reads a settings file on top of `settings`. Lines that set nothing are skipped. False with errno set
// when the file can't be read.
bool read_item_settings(const std::string& path, ItemSettings& settings);

// The text of a setting, empty when it is missing.
std::string_view setting_text(const ItemSettings& settings, std::string_view key);

// The number that a setting begins with, 0 when it is missing or begins with none.
std::uint64_t setting_number(const ItemSettings& settings, std::string_view key);
