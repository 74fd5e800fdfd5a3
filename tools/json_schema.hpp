// The JSON Schema of a document, made of its table.
#pragma once

#include "schema/schemas.hpp"

#include <string>

// Draft 2020-12, as text. Whatever the tools print for an item is valid, and so is every document of known
// members whose values are stored as they stand; each member takes null, but for a driver's word that is
// kept. A document of all defaults leaves an item as it is.
std::string json_schema_of(const Schema& schema);
