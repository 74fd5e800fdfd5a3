// The JSON Schema of a document, made of its table.
#pragma once

#include "schema/schemas.hpp"

#include <string>

// Draft 2020-12, as text. Whatever the tools print for an item is valid, and so is every document of known
// members of the right types; each member that a document can set takes null.
std::string json_schema_of(const Schema& schema);
