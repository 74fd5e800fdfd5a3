// Small operations on texts.
#pragma once

#include <string_view>

// The line without the line feed that ends it, if one does.
std::string_view chomp(std::string_view line);
