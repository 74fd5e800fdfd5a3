// Many items are started and stopped at once, kind after kind, until it is so.
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "zelmctl/outcome.hpp"
#include "zelmctl/selection.hpp"

enum class Act : std::uint8_t { DOWN, UP };

// Kind after kind: what feeds others comes up first, and goes last.
using Kinds = std::vector<ItemKind>;
std::vector<Kinds> order_of(Act act);

struct ActManner {
    // For all of it. What is left then is told to start or end, and not waited for.
    std::uint64_t deadline_us;
    bool kill;  // what doesn't end in time
};

struct ActedItem {
    ItemId id;
    bool supervised = false;  // how it is started
};

using TellOutcome = std::function<void(const ItemId&, const Outcome&)>;

// Does the one, or both one after the other, and tells once of each item what came of it. What went wrong
// with the watching, behind which nothing more is told; empty if nothing did.
std::string act_on(const std::vector<ActedItem>& items, std::initializer_list<Act> acts,
    const ActManner& manner, const TellOutcome& tell);

// What comes of an item that isn't there.
Outcome absent(Act act);

// Words of several lines in one.
std::string in_one_line(std::string text);
