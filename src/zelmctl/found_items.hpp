// Which items are there, and which of them run.
#pragma once

#include <string>
#include <vector>

#include "control/processes/driver_look.hpp"
#include "zelmctl/selection.hpp"
#include "zelmctl/status.hpp"

struct FoundItems {
    std::vector<ItemId> items;  // sorted
    Status status = IS_SO;      // TROUBLE when a directory could not be read, which has been said
};

// Those of the selection that are there. A kind without a directory has none.
FoundItems find_items(const Selection& selection);

// Those that are named one by one and not among the items, which are sorted.
std::vector<ItemId> missing_items(const Selection& selection, const std::vector<ItemId>& items);

// Says which are missing.
Status complain_of_missing(const Selection& selection, const std::vector<ItemId>& items);

// Those of the items that start at boot.
bool has_autostart(const ItemId& item);

// Empty for an item that can have none.
std::string metadir_of(const ItemId& item);

// Their drivers in the items' order, all at one moment. TROUBLE has been said when the kernel doesn't tell.
struct FoundDrivers {
    std::vector<RunningDriver> drivers;
    Status status = IS_SO;
};
FoundDrivers find_drivers(const std::vector<ItemId>& items);
