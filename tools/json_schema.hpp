// The JSON Schema of a document, made of its table.
#pragma once

#include <json11.hpp>
#include <string>

#include "schema/schemas.hpp"

// Draft 2020-12, as text. Whatever the tools print for an item is valid, and so is every document of known
// members whose values are stored as they stand; each member takes null, but for a driver's word that is
// kept. A document of all defaults leaves an item as it is.
std::string json_schema_of(const Schema& schema);

// A schema that is whole but for the members that say which it is.
std::string schema_text(json11::Json::object schema, const std::string& name, const std::string& title);

// What zelmctl get prints, which holds documents.
std::string json_schema_of_get();
