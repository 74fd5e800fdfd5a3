// The JSON Schemas as texts.
#pragma once

#include <json11.hpp>
#include <string>

#include "schema/schemas.hpp"

// Of a driver's document.
std::string json_schema_of(const Schema& schema);

// A schema that is whole but for the members that say which it is.
std::string schema_text(json11::Json::object schema, const std::string& name, const std::string& title);

// What holds documents: what zelmctl get prints, and the file that zelmctl apply takes.
std::string json_schema_of_get();
std::string json_schema_of_appliance();
