// Small operations on texts.
#pragma once

#include <string_view>

// The line without the line feed that ends it, if one does.
std::string_view chomp(std::string_view line);

// Moves over one word and the spaces behind it, onto the next word or the end.
void skiptospc(const char*& p);
