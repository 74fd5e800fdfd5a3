// The settings of an item as far as a document can say them.
#pragma once

#include <json11.hpp>

#include "schema/schemas.hpp"
#include "zelmctl/appliance/stored_item.hpp"

// A document by which a "set" stores just what it takes out of the settings: none that it would pass over,
// change or add, and no status. Null if there is nothing that it can say.
json11::Json take_document(const Schema& schema, FlatSettings& settings);
