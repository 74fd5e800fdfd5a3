// What the settings file of an item holds, as the tools read it.
#pragma once

#include <json11.hpp>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "zelmctl/selection.hpp"

// Values by their keys, several lines of one joined with a line feed.
using FlatSettings = std::map<std::string, std::string, std::less<>>;

struct StoredItem {
    const InputType* type = nullptr;  // of an input whose first line names a known one
    FlatSettings settings{};          // without what no set would leave there: empty keys and live commands

    bool operator==(const StoredItem&) const = default;
};

// None with errno set when it can't be read to its end.
std::optional<StoredItem> read_stored_item(const ItemId& item);

// The word of the driver that a start would run, "channel" of a channel's; empty if there is none.
std::string driver_of(const ItemId& id, const StoredItem& item);

// A text, or of several lines an array of texts.
json11::Json lines_of(std::string_view value);
