// The text form of one item in a listing.
#pragma once

#include <string>

#include "settings/infolist_item.hpp"

// Appends the item: its name and "{", the entries that the summary switches leave, and "}".
void append_item(std::string& out, const std::string& name, const InfoList& list);
