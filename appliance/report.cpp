#include "report.hpp"

#include <map>
#include <utility>

#include "driver_status.hpp"
#include "platform/time.hpp"

namespace {

struct Entry {
    char letter;
    std::string value;
};
using Entries = std::map<std::string, Entry, std::less<>>;

void add_driver_status(Entries& entries, const DriverState& state)
{
    for (StatusEntry& entry : driver_status(state))
        entries[std::move(entry.key)] = {'*', std::move(entry.value)};
}

// What differs from one report to the next.
void add_counters(Entries& entries, const DriverState& state)
{
    constexpr std::uint64_t FRAMES_PER_1001_SECONDS = 30000;
    const std::uint64_t elapsed_ms = (monotonic_clock_us() - state.started_us) / 1000;
    entries["frames rendered"] = {'&', std::to_string(elapsed_ms * FRAMES_PER_1001_SECONDS / 1001000)};
    entries["reports answered"] = {'&', std::to_string(state.reports)};
}

// A value of several lines is one entry for each of them, under the same name.
void write_lines(packet::Writer& writer, const std::string& name, std::string_view value)
{
    for (;;) {
        const std::size_t feed = value.find('\n');
        writer.add(name.c_str(), std::string(value.substr(0, feed)).c_str());
        if (feed == std::string_view::npos)
            return;
        value.remove_prefix(feed + 1);
    }
}

void write_odd_entries(packet::Writer& writer)
{
    constexpr const char* ODD[][2] = {
        {">page one", "1"},
        {"?question", "2"},
        {"plain", "3"},
        {"", "4"},
        {"&odd status", "5"},
        {"*", "6"},
    };
    for (const auto& [name, value] : ODD)
        writer.add(name, value);
}

}  // namespace

void write_report(packet::Writer& writer, const DriverState& state, const Misbehaviour& misbehaviour)
{
    Entries entries;
    for (const auto& [key, value] : state.settings)
        entries[key] = {'*', value};
    add_driver_status(entries, state);
    add_counters(entries, state);
    if (!state.last_command.empty())
        entries["last command"] = {'*', state.last_command};
    if (misbehaviour.big_reply_bytes > 0)
        entries["big"] = {'*', std::string(static_cast<std::size_t>(misbehaviour.big_reply_bytes), 'x')};
    for (const auto& [key, entry] : entries)
        write_lines(writer, entry.letter + key, entry.value);
    if (misbehaviour.odd_entries)
        write_odd_entries(writer);
}
