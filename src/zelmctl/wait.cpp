#include "zelmctl/wait.hpp"

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <vector>

#include "control/items/metadir.hpp"
#include "control/reports/report_exchange.hpp"
#include "platform/time.hpp"
#include "zelmctl/found_items.hpp"
#include "zelmctl/observed_items.hpp"
#include "zelmctl/outcome.hpp"

namespace {

constexpr char WAIT_HELP[] =
    R"(usage: zelmctl wait running|stopped|answering [--any] [--json] [--timeout S] ITEM...

Waits until all of the items are so, and tells of each. ITEM is like output/main, a kind alone for all of it,
or all.

  --any        wait until one of them is so
  --json       print one JSON object instead of a line an item
  --timeout S  wait so many seconds at most, 15 unless told; 0 looks once

Exit status: 0 it is so, 1 it is not, 2 trouble, 3 an item came up and ended again.
)";

using Result = Outcome::Result;

constexpr int WAIT_PATIENCE_MS = 500;  // for how an item ended that nobody waits for any more

// Running drivers that are asked for a report, which they answer when they are ready to serve.
class AskedDrivers {
public:
    explicit AskedDrivers(std::uint64_t deadline_us) : m_deadline_us(deadline_us) {}

    bool has_answered(const ItemId& item) const { return m_answered.contains(item); }

    void ask(const ItemId& item)
    {
        m_exchanges[item] =
            std::make_unique<ReportExchange>(active_socket_path(metadir_of(item)), m_deadline_us);
    }

    void forget(const ItemId& item)
    {
        m_exchanges.erase(item);
        m_answered.erase(item);
    }

    void add_awaited(std::vector<pollfd>& awaited) const
    {
        for (const auto& [item, exchange] : m_exchanges)
            if (!exchange->has_ended())
                awaited.push_back(exchange->awaited());
    }

    std::uint64_t due() const
    {
        std::uint64_t due = m_next_try;
        for (const auto& [item, exchange] : m_exchanges)
            if (!exchange->has_ended())
                due = std::min(due, exchange->due());
        return due;
    }

    // A driver that hung up, or was too busy, is asked again a little later.
    void proceed()
    {
        const bool asks_again = monotonic_clock_us() >= std::exchange(m_next_try, NO_DEADLINE);
        for (auto& [item, exchange] : m_exchanges) {
            if (!exchange->has_ended())
                exchange->proceed();
            else if (asks_again)
                ask(item);
            if (exchange->outcome() == ReportOutcome::REPLIED)
                m_answered.insert(item);
            else if (exchange->has_ended())
                m_next_try = monotonic_clock_us() + PAUSE_US;
        }
        std::erase_if(m_exchanges, [&](const auto& asked) { return m_answered.contains(asked.first); });
    }

private:
    static constexpr std::uint64_t PAUSE_US = 50'000;

    std::uint64_t m_deadline_us;
    std::uint64_t m_next_try = NO_DEADLINE;
    std::map<ItemId, std::unique_ptr<ReportExchange>> m_exchanges;
    std::set<ItemId> m_answered;
};

class Wait {
public:
    explicit Wait(const Options& options)
        : m_options(options), m_deadline_us(options.deadline_us()),
          m_items(options.items, options.state == "stopped" ? 0 : WAIT_PATIENCE_MS), m_asked(m_deadline_us)
    {
    }

    Status run()
    {
        while (!heed_changes() && monotonic_clock_us() < m_deadline_us)
            pause();
        return m_items.fault().empty() ? tell() : complain(m_items.fault());
    }

private:
    bool asks() const { return m_options.state == "answering"; }

    bool is_so(const ItemId& item) const
    {
        const auto state = m_items.state(item);
        const bool runs = state && state->pid != 0;
        if (m_options.state == "stopped")
            return !runs && !is_hidden(item);
        return runs && (!asks() || m_asked.has_answered(item));
    }

    bool is_hidden(const ItemId& item) const
    {
        const auto state = m_items.state(item);
        return state && state->is_hidden;
    }

    // Those that are named, and of whole kinds those that are there.
    std::vector<ItemId> items() const
    {
        std::vector<ItemId> items = m_items.items();
        for (ItemId& item : missing_items(m_options.items, items))
            items.push_back(std::move(item));
        std::sort(items.begin(), items.end());
        return items;
    }

    // Whether the waiting is over.
    bool heed_changes()
    {
        for (const ItemChange& change : m_items.proceed())
            heed(change);
        if (asks())
            m_asked.proceed();
        if (!m_items.fault().empty() || (!m_gone.empty() && !m_options.any))
            return true;
        const std::vector<ItemId> all = items();
        if (m_options.any)
            return std::any_of(all.begin(), all.end(), [this](const ItemId& item) { return is_so(item); });
        return std::all_of(all.begin(), all.end(), [this](const ItemId& item) { return is_so(item); }) ||
               std::any_of(all.begin(), all.end(), [this](const ItemId& item) { return is_hidden(item); });
    }

    void heed(const ItemChange& change)
    {
        const bool runs = change.pid != 0;
        if (change.what == ItemChange::What::RUNNING)
            m_came_up.insert(change.item);
        if (change.what == ItemChange::What::STOPPED && m_came_up.contains(change.item) &&
            m_options.state != "stopped")
            m_gone.insert_or_assign(change.item, change.ending);
        if (asks() && runs)
            m_asked.ask(change.item);
        else if (change.what == ItemChange::What::STOPPED)
            m_asked.forget(change.item);
    }

    void pause()
    {
        std::vector<pollfd> awaited{{m_items.descriptor(), POLLIN, 0}};
        m_asked.add_awaited(awaited);
        poll_until(awaited, std::min({m_deadline_us, m_items.due(), m_asked.due()}));
    }

    Outcome outcome_of(const ItemId& item) const
    {
        const auto state = m_items.state(item);
        const pid_t pid = state ? state->pid : 0;
        if (is_hidden(item))
            return not_to_be_seen();
        if (const auto gone = m_gone.find(item); gone != m_gone.end() && pid == 0)
            return {Result::ENDED, CAME_AND_WENT, 0, gone->second};
        const bool is_wanted = is_so(item) || m_options.any;
        if (!state)
            return {Result::ABSENT, is_wanted ? IS_SO : IS_NOT_SO};
        if (is_wanted && pid != 0)
            return {m_asked.has_answered(item) ? Result::ANSWERING : Result::RUNNING, IS_SO, pid};
        if (is_wanted)
            return {Result::STOPPED, IS_SO};
        return {Result::TIMEOUT, IS_NOT_SO, pid, {},
            m_options.state == "stopped" ? "still running" : "not " + m_options.state};
    }

    Status tell()
    {
        Outcomes outcomes(m_options.json, m_options.timeout_us);
        bool is_any_so = false;
        for (const ItemId& item : items()) {
            outcomes.tell(item, outcome_of(item));
            is_any_so |= is_so(item);
        }
        const Status status = outcomes.finish();
        return m_options.any && !is_any_so ? std::max(status, IS_NOT_SO) : status;
    }

    const Options& m_options;
    std::uint64_t m_deadline_us;
    ObservedItems m_items;
    AskedDrivers m_asked;
    std::set<ItemId> m_came_up;
    std::map<ItemId, std::optional<int>> m_gone;  // with their endings
};

Status wait_for(const Options& options)
{
    return Wait(options).run();
}

}  // namespace

const Subcommand WAIT{"wait", "--any --json --timeout", Items::BEHIND_A_STATE, WAIT_HELP, wait_for};
