#include "zelmctl/act.hpp"

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <vector>

#include "control/commands/delegated_run.hpp"
#include "platform/time.hpp"
#include "zelmctl/found_items.hpp"
#include "zelmctl/minders.hpp"
#include "zelmctl/observed_items.hpp"
#include "zelmctl/outcome.hpp"

namespace {

constexpr char START_HELP[] =
    R"(usage: zelmctl start [--autostart] [--json] [--supervised] [--timeout S] ITEM...

Starts the items at once, kind after kind, and waits until they run. ITEM is like output/main, a kind alone for all of
it, or all.

  --autostart   only those of them that start at boot
  --json        print one JSON object instead of a line an item
  --supervised  under the respawn manager
  --timeout S   wait so many seconds at most, 15 unless told

Exit status: 0 all run, 1 not all, 2 trouble.
)";

constexpr char STOP_HELP[] = R"(usage: zelmctl stop [--json] [--kill] [--timeout S] ITEM...

Stops the items at once, kind after kind, and waits until they have ended. ITEM is like output/main, a kind alone for
all of it, or all.

  --json       print one JSON object instead of a line an item
  --kill       kill those that don't end in time
  --timeout S  wait so many seconds at most, 15 unless told

Exit status: 0 none runs, 1 some do, 2 trouble.
)";

constexpr char RESTART_HELP[] =
    R"(usage: zelmctl restart [--autostart] [--json] [--kill] [--supervised] [--timeout S] ITEM...

Stops the items as "stop" does, and then starts them as "start" does.

  --autostart   only those of them that start at boot
  --json        print one JSON object instead of a line an item
  --kill        kill those that don't end in time
  --supervised  start them under the respawn manager
  --timeout S   wait so many seconds at most for all of that, 15 unless told

Exit status: 0 all run anew, 1 not all, 2 trouble.
)";

// After the limit a driver is still told to end, or killed, and that is seen.
constexpr std::uint64_t GRACE_US = 1'000'000;

enum class Act : std::uint8_t { STOP, START };

using Kinds = std::vector<ItemKind>;

// What feeds others comes up first, and goes last.
std::vector<Kinds> order_of(Act act)
{
    std::vector<Kinds> order{{ItemKind::INPUT, ItemKind::ROUTER}, {ItemKind::CHANNEL}, {ItemKind::OUTPUT}};
    if (act == Act::STOP)
        std::reverse(order.begin(), order.end());
    return order;
}

Selection selection_of(const std::vector<ItemId>& items)
{
    Selection selection;
    for (const ItemId& item : items)
        selection.add(item);
    return selection;
}

// Words of several lines in one.
std::string in_one_line(std::string text)
{
    while (text.ends_with('\n'))
        text.pop_back();
    for (std::size_t feed = 0; (feed = text.find('\n', feed)) != text.npos;)
        text.replace(feed, 1, ", ");
    return text;
}

class Action {
public:
    Action(const Options& options, const std::vector<ItemId>& items, std::vector<ItemId> missing)
        : m_options(options), m_deadline_us(options.deadline_us()), m_items(selection_of(items), 0),
          m_outcomes(options.json, options.timeout_us), m_missing(std::move(missing))
    {
        for (const ItemId& item : items)
            m_progress.push_back({item});
    }

    Status run(std::initializer_list<Act> acts)
    {
        for (const ItemId& item : m_missing)
            m_outcomes.tell(item, absent(*(acts.end() - 1)));
        for (Progress& progress : m_progress)
            if (const auto state = m_items.state(progress.item); state && state->is_hidden)
                tell(progress, not_to_be_seen());
        for (const Act act : acts)
            for (const Kinds& kinds : order_of(act))
                if (m_items.fault().empty())
                    act_on(kinds, act, act == *(acts.end() - 1));
        const Status status = m_outcomes.finish();
        return m_items.fault().empty() ? status : complain(m_items.fault());
    }

private:
    struct Progress {
        ItemId item;
        bool is_under_way = false;
        bool is_told = false;
        std::optional<int> result{};  // of the command, once it is done
        std::optional<int> ending{};  // of the process that it started
        std::string said{};
    };

    void tell(Progress& progress, const Outcome& outcome)
    {
        progress.is_told = true;
        m_outcomes.tell(progress.item, outcome);
    }

    static Outcome absent(Act act) { return {Outcome::Result::ABSENT, act == Act::STOP ? IS_SO : IS_NOT_SO}; }

    void act_on(const Kinds& kinds, Act act, bool is_last)
    {
        for (const ItemKind kind : kinds)
            launch(kind, act);
        const std::uint64_t limit = std::max(m_deadline_us, monotonic_clock_us()) + GRACE_US;
        for (;;) {
            heed_reports();
            m_items.proceed();
            const std::uint64_t now = monotonic_clock_us();
            bool is_over = true;
            for (Progress& progress : m_progress)
                if (progress.is_under_way)
                    is_over &= settle(progress, act, is_last, now, now >= limit);
            if (is_over || !m_items.fault().empty())
                return;
            pollfd awaited[] = {{m_minders.descriptor(), POLLIN, 0}, {m_items.descriptor(), POLLIN, 0}};
            poll_until(awaited, std::min(now < m_deadline_us ? m_deadline_us : limit, m_items.due()));
        }
    }

    void launch(ItemKind kind, Act act)
    {
        std::vector<std::string> names;
        std::vector<Minders::Task> tasks;
        for (std::size_t i = 0; i < m_progress.size(); ++i)
            if (Progress& progress = m_progress[i]; progress.item.role->kind == kind && !progress.is_told) {
                progress = {progress.item, true};
                names.push_back(progress.item.name);
                tasks.push_back({i, progress.item.name});
            }
        if (names.empty())
            return;
        const Role& role = *std::find_if(
            std::begin(ROLES), std::end(ROLES), [kind](const Role& each) { return each.kind == kind; });
        begin_delegated_run({role, m_options.supervised, m_options.kill, m_deadline_us}, std::move(names));
        const bool is_started = act == Act::START && m_minders.start(tasks);
        for (const Minders::Task& task : tasks)
            if (!is_started && (act == Act::START || !m_minders.stop(task)))
                tell(m_progress[task.number], {Outcome::Result::REFUSED, IS_NOT_SO, 0, {}, "fork failed"});
    }

    void heed_reports()
    {
        for (const MinderReport& report : m_minders.read()) {
            Progress& progress = m_progress[report.item];
            (report.what == MinderReport::What::DONE ? progress.result : progress.ending) = report.value;
            progress.said = in_one_line(report.said);
        }
    }

    // Whether nothing more is to be waited for of the item; what came of it has then been told, if that was
    // the last act, or if it is no good for the next.
    bool settle(Progress& progress, Act act, bool is_last, std::uint64_t now, bool is_limit)
    {
        if (!progress.is_told && !is_limit && !is_settled(progress, act, now))
            return false;
        progress.is_under_way = false;
        const Outcome outcome = outcome_of(progress, act);
        if (!progress.is_told && (is_last || outcome.result != Outcome::Result::STOPPED)) {
            if (!progress.said.empty() && outcome.result != Outcome::Result::REFUSED)
                complain_of(progress.item, progress.said);
            tell(progress, outcome);
        }
        return true;
    }

    pid_t pid_of(const Progress& progress) const
    {
        const auto state = m_items.state(progress.item);
        return state ? state->pid : 0;
    }

    bool is_settled(const Progress& progress, Act act, std::uint64_t now) const
    {
        if (!progress.result)
            return false;
        if (*progress.result != 0 || !m_items.state(progress.item))
            return true;
        const bool runs = pid_of(progress) != 0;
        if (now >= m_deadline_us)
            return act == Act::START || !runs || !m_options.kill;
        return act == Act::START ? runs || progress.ending : !runs || !progress.said.empty();
    }

    Outcome outcome_of(const Progress& progress, Act act) const
    {
        using Result = Outcome::Result;
        const pid_t pid = pid_of(progress);
        if (!m_items.state(progress.item))
            return absent(act);
        if ((pid != 0) == (act == Act::START))
            return {pid != 0 ? Result::RUNNING : Result::STOPPED, IS_SO, pid};
        if (progress.result.value_or(0) != 0 || (act == Act::STOP && !progress.said.empty()))
            return {Result::REFUSED, IS_NOT_SO, pid, {}, progress.said};
        if (act == Act::START && progress.ending)
            return {Result::ENDED, IS_NOT_SO, 0, progress.ending};
        return {Result::TIMEOUT, IS_NOT_SO, pid, {}, act == Act::START ? "not running" : "still running"};
    }

    const Options& m_options;
    std::uint64_t m_deadline_us;
    ObservedItems m_items;
    Outcomes m_outcomes;
    Minders m_minders;
    std::vector<ItemId> m_missing;
    std::vector<Progress> m_progress;
};

Status act_on_items(const Options& options, std::initializer_list<Act> acts)
{
    FoundItems found = find_items(options.items);
    std::vector<ItemId> missing = missing_items(options.items, found.items);
    if (options.autostart)
        std::erase_if(found.items, [](const ItemId& item) { return !has_autostart(item); });
    return std::max(found.status, Action(options, found.items, std::move(missing)).run(acts));
}

Status start_items(const Options& options)
{
    return act_on_items(options, {Act::START});
}

Status stop_items(const Options& options)
{
    return act_on_items(options, {Act::STOP});
}

Status restart_items(const Options& options)
{
    return act_on_items(options, {Act::STOP, Act::START});
}

}  // namespace

const Subcommand START{
    "start", "--autostart --json --supervised --timeout", Items::NAMED, START_HELP, start_items};
const Subcommand STOP{"stop", "--json --kill --timeout", Items::NAMED, STOP_HELP, stop_items};
const Subcommand RESTART{
    "restart", "--autostart --json --kill --supervised --timeout", Items::NAMED, RESTART_HELP, restart_items};
