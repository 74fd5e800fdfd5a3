// The JSON Schema of a document, made of its table.
#pragma once

#include <json11.hpp>

#include "schema/schemas.hpp"

// Draft 2020-12, but for the members that say which schema it is. Whatever the tools print for an item is
// valid, and so is every document of known members whose values are stored as they stand; each member takes
// null, but for a driver's word that is kept. A document of all defaults leaves an item as it is.
json11::Json::object document_schema(const Schema& schema);
