// Settings that give access to something, as the tables of the documents mark them.
#pragma once

#include <string_view>

// Whether any driver has such a setting under that key.
bool is_secret(std::string_view key);
