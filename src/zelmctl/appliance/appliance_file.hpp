// The appliance as one file: which items there are to be, with what, and whether they run.
#pragma once

#include <cstdint>
#include <deque>
#include <json11.hpp>
#include <map>
#include <memory>
#include <memory_resource>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zelmctl/check/findings.hpp"
#include "zelmctl/selection.hpp"

constexpr std::int64_t APPLIANCE_LIMIT = std::int64_t{64} << 20;  // the bytes of a file

struct WantedItem {
    ItemId id;
    const InputType* type = nullptr;           // where one is named
    std::optional<std::string_view> driver{};  // its word, where the file tells it
    // By their keys, several lines joined with a line feed; none for one that is to go.
    std::pmr::map<std::string_view, std::optional<std::string_view>> settings{};
    std::optional<bool> runs{};
    std::optional<bool> supervised{};
};

struct WantedAppliance {
    // In which the items have their settings: a thousand of them are made and given up at once.
    std::unique_ptr<std::pmr::monotonic_buffer_resource> memory =
        std::make_unique<std::pmr::monotonic_buffer_resource>();

    std::vector<WantedItem> items{};   // sorted
    std::vector<const Role*> kinds{};  // that are named, though without items

    json11::Json json{};             // which the views of the items are of,
    std::deque<std::string> kept{};  // or of these
};

// What the text wants. What can't be is a finding; without one, each item can be stored as it is wanted. Keys
// of which no document tells go to `unknown`: a driver may take them.
WantedAppliance read_appliance(const std::string& text, Findings& findings, Findings& unknown);

// The path of an item in the file.
std::string path_of(const ItemId& item);
