// A JSON document of an item: its top-level members.
#pragma once

#include <json11.hpp>
#include <map>
#include <string>

using Document = std::map<std::string, json11::Json>;
