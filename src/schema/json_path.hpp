// The ways down into a JSON document.
#pragma once

#include <json11.hpp>
#include <string_view>

// The member of that name, or of an array the element at that decimal place; null where there is none, as
// behind the end of an array and below a scalar. nullptr where a longer path would not exist: an object has
// no such member, or what is looked into is null or nullptr itself. Throws std::invalid_argument where an
// array meets a name.
const json11::Json* member_of(const json11::Json* json, std::string_view name);

// The same down a path of names with dots between them.
const json11::Json* member_at(const json11::Json* json, std::string_view path);
