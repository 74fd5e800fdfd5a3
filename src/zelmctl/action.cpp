#include "zelmctl/action.hpp"

#include <algorithm>
#include <optional>

#include "control/commands/delegated_run.hpp"
#include "platform/time.hpp"
#include "zelmctl/minders.hpp"
#include "zelmctl/observed_items.hpp"
#include "zelmctl/options.hpp"

namespace {

// After the limit a driver is still told to end, or killed, and that is seen.
constexpr std::uint64_t GRACE_US = 1'000'000;

Selection selection_of(const std::vector<ActedItem>& items)
{
    Selection selection;
    for (const ActedItem& item : items)
        selection.add(item.id);
    return selection;
}

class Action {
public:
    Action(const std::vector<ActedItem>& items, const ActManner& manner, const TellOutcome& tell)
        : m_manner(manner), m_tell(tell), m_items(selection_of(items), 0)
    {
        for (const ActedItem& item : items)
            m_progress.push_back({item.id, item.supervised});
    }

    std::string run(std::initializer_list<Act> acts)
    {
        for (Progress& progress : m_progress)
            if (const auto state = m_items.state(progress.item); state && state->is_hidden)
                tell(progress, not_to_be_seen());
        for (const Act act : acts)
            for (const Kinds& kinds : order_of(act))
                if (m_items.fault().empty())
                    act_on(kinds, act, act == *(acts.end() - 1));
        return m_items.fault();
    }

private:
    struct Progress {
        ItemId item;
        bool supervised;
        bool is_under_way = false;
        bool is_told = false;
        std::optional<int> result{};  // of the command, once it is done
        std::optional<int> ending{};  // of the process that it started
        std::string said{};
    };

    void tell(Progress& progress, const Outcome& outcome)
    {
        progress.is_told = true;
        m_tell(progress.item, outcome);
    }

    void act_on(const Kinds& kinds, Act act, bool is_last)
    {
        for (const ItemKind kind : kinds)
            for (const bool supervised : {false, true})
                launch(kind, act, supervised);
        const std::uint64_t limit = std::max(m_manner.deadline_us, monotonic_clock_us()) + GRACE_US;
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
            poll_until(
                awaited, std::min(now < m_manner.deadline_us ? m_manner.deadline_us : limit, m_items.due()));
        }
    }

    void launch(ItemKind kind, Act act, bool supervised)
    {
        std::vector<std::string> names;
        std::vector<Minders::Task> tasks;
        for (std::size_t i = 0; i < m_progress.size(); ++i)
            if (Progress& progress = m_progress[i];
                progress.item.role->kind == kind && progress.supervised == supervised && !progress.is_told) {
                progress = {progress.item, supervised, true};
                names.push_back(progress.item.name);
                tasks.push_back({i, progress.item.name});
            }
        if (names.empty())
            return;
        const Role& role = *std::find_if(
            std::begin(ROLES), std::end(ROLES), [kind](const Role& each) { return each.kind == kind; });
        begin_delegated_run({role, supervised, m_manner.kill, m_manner.deadline_us}, std::move(names));
        const bool is_started = act == Act::UP && m_minders.start(tasks);
        for (const Minders::Task& task : tasks)
            if (!is_started && (act == Act::UP || !m_minders.stop(task)))
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
        if (now >= m_manner.deadline_us)
            return act == Act::UP || !runs || !m_manner.kill;
        return act == Act::UP ? runs || progress.ending : !runs || !progress.said.empty();
    }

    Outcome outcome_of(const Progress& progress, Act act) const
    {
        using Result = Outcome::Result;
        const pid_t pid = pid_of(progress);
        if (!m_items.state(progress.item))
            return absent(act);
        if ((pid != 0) == (act == Act::UP))
            return {pid != 0 ? Result::RUNNING : Result::STOPPED, IS_SO, pid};
        if (progress.result.value_or(0) != 0 || (act == Act::DOWN && !progress.said.empty()))
            return {Result::REFUSED, IS_NOT_SO, pid, {}, progress.said};
        if (act == Act::UP && progress.ending)
            return {Result::ENDED, IS_NOT_SO, 0, progress.ending};
        return {Result::TIMEOUT, IS_NOT_SO, pid, {}, act == Act::UP ? "not running" : "still running"};
    }

    const ActManner& m_manner;
    const TellOutcome& m_tell;
    ObservedItems m_items;
    Minders m_minders;
    std::vector<Progress> m_progress;
};

}  // namespace

std::vector<Kinds> order_of(Act act)
{
    std::vector<Kinds> order{{ItemKind::INPUT, ItemKind::ROUTER}, {ItemKind::CHANNEL}, {ItemKind::OUTPUT}};
    if (act == Act::DOWN)
        std::reverse(order.begin(), order.end());
    return order;
}

Outcome absent(Act act)
{
    return {Outcome::Result::ABSENT, act == Act::DOWN ? IS_SO : IS_NOT_SO};
}

std::string in_one_line(std::string text)
{
    while (text.ends_with('\n'))
        text.pop_back();
    for (std::size_t feed = 0; (feed = text.find('\n', feed)) != text.npos;)
        text.replace(feed, 1, ", ");
    return text;
}

std::string act_on(const std::vector<ActedItem>& items, std::initializer_list<Act> acts,
    const ActManner& manner, const TellOutcome& tell)
{
    return Action(items, manner, tell).run(acts);
}
