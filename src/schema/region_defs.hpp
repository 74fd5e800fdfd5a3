// A region is one layer of a channel. All regions have the same members and the same family of flat keys.
#pragma once

#include <string>

#include "schema/document.hpp"

// The flat keys of the region with this base name: a tree of the shape of a region's document, whose
// leaves are the keys.
Document region_key_map(const std::string& name);
