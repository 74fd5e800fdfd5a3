// JSON as people read it and version control compares it.
#pragma once

#include <json11.hpp>
#include <string>

// The value with a line for each member and element, but for arrays of scalars and what is empty: the first
// without a margin, as it may stand behind a name, the others with one.
std::string indented(const json11::Json& json, const std::string& margin);
