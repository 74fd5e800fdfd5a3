// Which drivers there are.
#pragma once

#include <string_view>

#include "settings/settings_file.hpp"

// Whether the word is that of a driver of such items, also of one without a document of its own.
bool is_driver_word(std::string_view word, ItemKind kind);
