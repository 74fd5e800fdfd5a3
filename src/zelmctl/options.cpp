#include "zelmctl/options.hpp"

#include <charconv>
#include <cstdio>

#include "platform/time.hpp"
#include "zelmctl/printable.hpp"

namespace {

constexpr struct {
    std::string_view name;
    bool Options::*flag;
} FLAGS[] = {
    {"--any", &Options::any},
    {"--autostart", &Options::autostart},
    {"--documents", &Options::documents},
    {"--exact", &Options::exact},
    {"--json", &Options::json},
    {"--kill", &Options::kill},
    {"--prune", &Options::prune},
    {"--secrets", &Options::secrets},
    {"--settings", &Options::settings},
    {"--supervised", &Options::supervised},
};

constexpr struct {
    std::string_view name;
    std::uint64_t Options::*microseconds;
} TIMES[] = {
    {"--for", &Options::for_us},
    {"--timeout", &Options::timeout_us},
};

constexpr std::string_view STATES[] = {"answering", "running", "stopped"};

bool takes(const Subcommand& subcommand, std::string_view name)
{
    for (std::string_view left = subcommand.switches; !left.empty();) {
        const std::size_t blank = left.find(' ');
        if (left.substr(0, blank) == name)
            return true;
        left.remove_prefix(blank == left.npos ? left.size() : blank + 1);
    }
    return false;
}

bool read_seconds(std::string_view text, std::uint64_t& microseconds)
{
    constexpr double LONGEST = 1e9;
    double seconds = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    if (error != std::errc() || end != text.data() + text.size() || !(seconds >= 0 && seconds <= LONGEST))
        return false;
    microseconds = static_cast<std::uint64_t>(seconds * 1e6);
    return true;
}

using Words = std::vector<std::string_view>;

// Takes a switch, with its value, off the front of the words. What is wrong with it; empty if nothing is.
std::string take_switch(const Subcommand& subcommand, Words& words, Options& options)
{
    const std::string_view name = words.front();
    words.erase(words.begin());
    if (!takes(subcommand, name))
        return "unknown switch " + std::string(name);
    for (const auto& row : FLAGS)
        if (name == row.name) {
            options.*row.flag = true;
            return {};
        }
    if (words.empty())
        return std::string(name) + " wants a value";
    const std::string_view value = words.front();
    words.erase(words.begin());
    for (const auto& row : TIMES)
        if (name == row.name)
            return read_seconds(value, options.*row.microseconds)
                       ? ""
                       : std::string(name) + " wants seconds, not " + std::string(value);
    options.output_file = value;
    return value.empty() ? std::string(name) + " wants a file" : "";
}

std::string take_word(const Subcommand& subcommand, std::string_view word, Options& options)
{
    if (subcommand.items == Items::BEHIND_A_STATE && options.state.empty()) {
        options.state = word;
        for (const std::string_view state : STATES)
            if (word == state)
                return {};
        return "no state to wait for: " + std::string(word);
    }
    if (subcommand.items == Items::NONE)
        return "unknown word " + std::string(word);
    if (subcommand.items == Items::WORDS) {
        options.words.emplace_back(word);
        return {};
    }
    return options.items.add(word) ? "" : "no item: " + std::string(word);
}

std::string fault_of_items(const Subcommand& subcommand, Options& options)
{
    if (subcommand.items == Items::BEHIND_A_STATE && options.state.empty())
        return "a state is missing: running, stopped or answering";
    if (subcommand.items == Items::WORDS)
        return options.words.empty() ? "an argument is missing" : "";
    if (!options.items.is_empty())
        return {};
    if (subcommand.items == Items::NAMED || subcommand.items == Items::BEHIND_A_STATE)
        return "an item is missing, such as output/main, output or all";
    options.items.add("all");
    return {};
}

}  // namespace

std::uint64_t Options::deadline_us() const
{
    return monotonic_clock_us() + timeout_us;
}

std::optional<Options> read_options(const Subcommand& subcommand, int argc, char** argv, Status& status)
{
    Options options;
    std::string fault;
    for (Words words(argv, argv + argc); !words.empty() && fault.empty();) {
        const std::string_view word = words.front();
        if (word == "--help" || word == "-h") {
            std::fputs(subcommand.help, stdout);
            status = IS_SO;
            return {};
        }
        if (word.starts_with('-') && word != "-") {
            fault = take_switch(subcommand, words, options);
        } else {
            words.erase(words.begin());
            fault = take_word(subcommand, word, options);
        }
    }
    if (fault.empty())
        fault = fault_of_items(subcommand, options);
    if (fault.empty())
        return options;
    status = complain(std::string(subcommand.name) + ": " + fault + "; see zelmctl " +
                      std::string(subcommand.name) + " --help");
    return {};
}

Status complain(std::string_view what)
{
    std::fprintf(stderr, "zelmctl: %s\n", printable(what).c_str());
    return TROUBLE;
}

Status complain_of(const ItemId& item, const std::string& what)
{
    return complain(std::string(item.role->word) + "/" + item.name + ": " + what);
}
