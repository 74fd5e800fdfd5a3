// A region is one layer of a channel. All regions have the same members and the same family of flat keys.
#pragma once

#include <cstddef>
#include <string>

#include "schema/document.hpp"

// The global items of a channel, whose base names are "global item 1" and so on.
inline constexpr std::size_t GLOBAL_ITEMS = 8;

// The flat keys of the region with this base name: a tree of the shape of a region's document, whose
// leaves are the keys.
Document region_key_map(const std::string& name);
