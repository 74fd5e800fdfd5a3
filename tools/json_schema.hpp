// The JSON Schemas as texts.
#pragma once

#include <json11.hpp>
#include <string>

#include "schema/schemas.hpp"

// Of a driver's document.
std::string json_schema_of(const Schema& schema);

// A schema that is whole but for the members that say which it is.
std::string schema_text(json11::Json::object schema, const std::string& name, const std::string& title);

// What zelmctl get prints, which holds documents.
std::string json_schema_of_get();
