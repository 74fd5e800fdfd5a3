// What stands on a command line behind a subcommand.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zelmctl/selection.hpp"
#include "zelmctl/status.hpp"

struct Options {
    std::string state;  // that "wait" waits for
    bool any = false;
    bool exact = false;
    bool prune = false;
    bool autostart = false;
    bool documents = false;
    bool kill = false;
    bool json = false;
    bool secrets = false;
    bool settings = false;
    bool supervised = false;
    std::uint64_t timeout_us = 15'000'000;
    std::uint64_t for_us = 0;  // 0 is for ever
    std::string output_file;   // empty is standard output
    Selection items;
    std::vector<std::string> words;  // of a subcommand that reads them itself

    // When the time that --timeout gives ends, on the clock of monotonic_clock_us().
    std::uint64_t deadline_us() const;
};

// What stands on it beside switches: items, or words of another kind.
enum class Items : std::uint8_t { NONE, ALL_UNLESS_NAMED, NAMED, BEHIND_A_STATE, WORDS };

// A subcommand whose command line is made of switches and items, or of at least one word of its own.
struct Subcommand {
    std::string_view name;
    std::string_view switches;  // that it takes, with blanks between them; --help is everybody's
    Items items;
    const char* help;
    Status (*run)(const Options& options);
};

// The words behind the subcommand. None when the run ends with that: what is wrong has been said on standard
// error, or the help has been printed, and `status` is set.
std::optional<Options> read_options(const Subcommand& subcommand, int argc, char** argv, Status& status);

// Says the one line of trouble on standard error.
Status complain(std::string_view what);
Status complain_of(const ItemId& item, const std::string& what);
