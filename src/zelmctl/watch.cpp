#include "zelmctl/watch.hpp"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <unistd.h>

#include "platform/signals.hpp"
#include "platform/time.hpp"
#include "zelmctl/observed_items.hpp"
#include "zelmctl/outcome.hpp"

namespace {

constexpr char WATCH_HELP[] = R"(usage: zelmctl watch [--for S] [ITEM...]

Prints one JSON object a line: each item as it is, and then every change of it as it comes. ITEM is like output/main,
a kind alone for all of it, or all, which is meant without one.

  --for S  end after so many seconds, and not only by SIGINT, SIGTERM or a closed output

Exit status: 0, or 2 when watching was not possible.
)";

// The parent is mostly the system's init, or the supervisor, and prompt unless the machine is busy.
constexpr int PATIENCE_MS = 500;

// In the order of the changes.
constexpr const char* EVENTS[] = {"present", "created", "deleted", "settings", "running", "stopped", "gap"};

std::string line_of(const ItemChange& change, bool is_hidden)
{
    using What = ItemChange::What;
    json11::Json::object object{{"event", EVENTS[static_cast<std::size_t>(change.what)]}};
    if (change.what != What::GAP) {
        object["kind"] = change.item.role->word;
        object["name"] = change.item.name;
    }
    if (change.what == What::PRESENT && !is_hidden)
        object["running"] = change.pid != 0;
    if (change.pid != 0)
        object["pid"] = change.pid;
    if (change.ending)
        add_ending(object, *change.ending);
    return json11::Json(object).dump() + "\n";
}

Status watch(const Options& options)
{
    const Descriptor end_signals = hold_back_end_signals();
    std::signal(SIGPIPE, SIG_IGN);
    const std::uint64_t end_us = options.for_us != 0 ? monotonic_clock_us() + options.for_us : NO_DEADLINE;
    ObservedItems items(options.items, PATIENCE_MS);
    pollfd awaited[] = {
        {items.descriptor(), POLLIN, 0}, {end_signals.get(), POLLIN, 0}, {STDOUT_FILENO, 0, 0}};
    Status status = IS_SO;
    for (;;) {
        for (const ItemChange& change : items.proceed()) {
            const auto state = items.state(change.item);
            const bool is_hidden = state && state->is_hidden;
            if (is_hidden)
                status = complain_of(change.item, not_to_be_seen().text);
            std::fputs(line_of(change, is_hidden).c_str(), stdout);
        }
        if (std::fflush(stdout) != 0 && errno == EPIPE)
            ::_exit(IS_SO);  // whoever read it has seen enough, and what is left is for nobody
        if (std::ferror(stdout))
            return status;  // whoever flushes at the end says it
        if (!items.fault().empty())
            return complain(items.fault());
        if (monotonic_clock_us() >= end_us || awaited[1].revents != 0 || awaited[2].revents != 0)
            return status;
        poll_until(awaited, std::min(end_us, items.due()));
    }
}

}  // namespace

const Subcommand WATCH{"watch", "--for", Items::ALL_UNLESS_NAMED, WATCH_HELP, watch};
