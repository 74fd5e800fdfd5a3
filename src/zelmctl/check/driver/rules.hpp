// What is asked of a driver, in the order of the page zelm-packets(5), which tells it all.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "zelmctl/check/driver/trial.hpp"

namespace rule {

enum Number : std::uint8_t {
    UP = 1,
    STAYS,
    KIND,
    PATH,
    FOUND,
    LINK,
    CLOSED_ON_EXEC,
    ENTRY_RIGHTS,
    LOCK,
    LOCK_IN_VAIN,
    SECOND_START,
    DEAD_ENTRY,
    ACCEPTS,
    SIZE,
    MAGIC,
    LENGTH,
    SEQUENCE,
    FLAGS,
    COMMAND,
    TABLE,
    COUNT,
    TEXTS,
    ENDS,
    RESERVED,
    SURVIVES_REPORT,
    KEEPS_CONNECTION,
    REPORT,
    NEXT_REQUEST,
    NO_REQUEST,
    OTHER_WORD,
    SET_REPORTED,
    SET_UNKNOWN,
    SET_NO_KEY,
    SET_NO_VALUE,
    SET_COMMAND,
    SET_ODD_VALUE,
    NOTHING_SET,
    LETTERS,
    LINE_FEEDS,
    MANIFEST,
    SILENT,
    SHORT,
    SPLIT,
    LONG,
    GARBLED,
    FLOOD,
    HANG_UP,
    AT_ONCE,
    CROWD,
    LONGEST_SILENT,
    GONE_CLIENTS,
    GROWTH,
    ENDING,
    ENTRY_REMOVED,
    NOTHING_LEFT,
    BEHIND_THE_LAST
};

}  // namespace rule

// A set of rules.
using RuleSet = std::uint64_t;
static_assert(rule::BEHIND_THE_LAST <= 64);
constexpr RuleSet set_of(auto... rules)
{
    return (RuleSet{0} | ... | (RuleSet{1} << rules));
}

struct Rule {
    rule::Number number;
    const char* section;                 // of the page
    const char* sentence;                // what the driver has to do
    RuleSet premises;                    // without which there is nothing to try
    std::string (*fault)(Trial& trial);  // what was seen, and what it costs; empty where the rule is kept
};

// In the order of their numbers, from 1 up.
std::span<const Rule> driver_rules();
