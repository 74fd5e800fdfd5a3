#include "zelmctl/appliance/do_plan.hpp"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <span>
#include <unistd.h>
#include <utility>

#include "control/commands/create_item.hpp"
#include "control/commands/delegated_run.hpp"
#include "control/commands/delete_item.hpp"
#include "control/commands/input_metadata.hpp"
#include "control/commands/items_of_run.hpp"
#include "control/commands/update_settings.hpp"
#include "control/items/item_directory.hpp"
#include "platform/time.hpp"
#include "schema/composite_text.hpp"
#include "zelmctl/found_items.hpp"

using Do = Step::Do;

namespace {

bool may_write(const std::string& directory)
{
    return ::faccessat(AT_FDCWD, directory.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

// A directory that isn't there is made with its parents.
bool may_write_or_make(std::string directory)
{
    while (!may_write(directory)) {
        if (errno != ENOENT || directory.size() <= 1)
            return false;
        directory.resize(std::max<std::size_t>(directory.rfind('/'), 1));
    }
    return true;
}

// The new contents of a file are made in the metadir.
bool may_change(const PlannedItem& item)
{
    if (item.changes.empty())
        return true;
    const bool is_rewritten = item.changes.front().what != Do::CREATE && !item.is_deleted();
    return may_write_or_make(item.id.role->directory) &&
           (!is_rewritten || may_write(metadir_of(item.id)) || errno == ENOENT);
}

std::string file_of(const PlannedItem& item)
{
    std::string contents = item.type ? "#!" + std::string(item.type->marker) + "\n" : "";
    if (item.changes.size() > 1)
        contents += "#multiline\n";
    for (const Step& step : item.changes)
        if (step.what == Do::SET)
            for (const std::string& line : split(*step.to, "\n"))
                contents.append(step.key).append("=").append(line).append("\n");
    return contents;
}

// Takes what the commands say.
class CommandWords {
public:
    CommandWords() : m_stream(::open_memstream(&m_text, &m_size)) { say_to(m_stream ? m_stream : stderr); }
    ~CommandWords()
    {
        end();
        std::free(m_text);
    }
    CommandWords(const CommandWords&) = delete;
    CommandWords& operator=(const CommandWords&) = delete;

    // What was said, in one line, and no more is taken.
    std::string end()
    {
        say_to(stderr);
        if (m_stream)
            std::fclose(std::exchange(m_stream, nullptr));
        return m_text ? in_one_line({m_text, m_size}) : "";
    }

private:
    char* m_text = nullptr;
    std::size_t m_size = 0;
    std::FILE* m_stream;
};

// Those behind drivers that hang are told all the same.
constexpr std::uint64_t SHORTEST_TELLING_US = 1'000'000;

class Execution {
public:
    Execution(Plan& plan, std::uint64_t timeout_us, const TellStep& tell)
        : m_plan(plan), m_timeout_us(timeout_us), m_told_by(monotonic_clock_us() + timeout_us), m_tell(tell)
    {
    }

    void run()
    {
        change(changed_first(m_plan));
        act(Act::DOWN, &PlannedItem::is_stopped);
        change(changed_when_stopped(m_plan));
        act(Act::UP, &PlannedItem::is_started);
    }

private:
    // The items of a kind follow each other.
    void change(std::vector<PlannedItem*> items)
    {
        std::erase_if(items, [](const PlannedItem* item) { return is_left(*item); });
        for (auto begin = items.begin(); begin != items.end();) {
            const Role* const role = (*begin)->id.role;
            const auto end = std::find_if(
                begin, items.end(), [role](const PlannedItem* item) { return item->id.role != role; });
            change_of_role(*role, {begin, end});
            begin = end;
        }
    }

    // Their directory is flushed once, before they are told of.
    void change_of_role(const Role& role, std::span<PlannedItem* const> items)
    {
        std::vector<std::string> names;
        for (const PlannedItem* item : items)
            names.push_back(item->id.name);
        begin_delegated_run({role, false, false, 0}, std::move(names));
        for (PlannedItem* item : items)
            change_item(*item);
        flush_items_or_complain(open_item_directory(role.directory, O_PATH).get());
        for (PlannedItem* item : items)
            tell_changes(*item);
    }

    void change_item(PlannedItem& item) const
    {
        CommandWords words;
        std::string error;
        const bool is_done = do_changes(item, error);
        const std::string said = words.end();
        if (is_done && !said.empty())
            complain_of(item.id, said);
        if (!is_done && error.empty())
            error = said.empty() ? "it could not be done" : said;
        for (Step& step : item.changes) {
            step.is_done = is_done;
            step.error = error;
        }
    }

    void tell_changes(PlannedItem& item)
    {
        for (const Step& step : item.changes)
            m_tell(item, step);
        if (have_changes_failed(item) && !item.is_started_anew())
            leave_rest(item);
    }

    bool do_changes(const PlannedItem& item, std::string& error) const
    {
        const std::string& name = item.id.name;
        if (item.is_deleted())
            return delete_item(name) == 0;
        if (item.changes.front().what != Do::CREATE)
            return rewrite(item, error);
        const bool is_created = create_item_or_complain(name, file_of(item));
        if (is_created)
            make_input_metadata_or_complain(name);
        ::alarm(0);
        return is_created;
    }

    bool rewrite(const PlannedItem& item, std::string& error) const
    {
        SettingChanges changes;
        for (const Step& step : item.changes)
            changes.push_back({step.key, step.to});
        std::optional<std::uint64_t> told_by;
        if (item.runs && !item.is_stopped())
            told_by = std::max(m_told_by, monotonic_clock_us() + SHORTEST_TELLING_US);
        const Descriptor directory = open_item_directory(item.id.role->directory, O_PATH);
        const SettingsUpdate update =
            update_settings_or_complain(directory.get(), item.id.name, changes, Lines::WHOLE, told_by);
        if (update.is_stored && told_by && !update.is_told)
            error = "it is stored, and the driver could not be told";
        return update.is_stored && error.empty();
    }

    void act(Act what, bool (PlannedItem::*is_meant)() const)
    {
        std::map<ItemId, PlannedItem*> meant;
        std::vector<ActedItem> items;
        for (PlannedItem& item : m_plan)
            if ((item.*is_meant)() && !is_left(item)) {
                meant[item.id] = &item;
                items.push_back({item.id, item.supervised});
            }
        if (items.empty())
            return;
        const ActManner manner{monotonic_clock_us() + m_timeout_us, false};
        const std::string fault =
            act_on(items, {what}, manner, [&](const ItemId& id, const Outcome& outcome) {
                take_outcome(*meant.extract(id).mapped(), what, outcome);
            });
        for (const auto& [id, item] : meant)
            take_outcome(*item, what, {Outcome::Result::REFUSED, TROUBLE, 0, {}, fault});
    }

    // What is stopped only to be started anew is told of when it has been: with its old settings, rather than
    // not at all, where the new ones could not be stored.
    void take_outcome(PlannedItem& item, Act what, const Outcome& outcome)
    {
        const bool is_last = what == Act::UP || !item.is_started();
        if (outcome.status != IS_SO)
            item.act->error = text_of(outcome, m_timeout_us);
        else if (is_last && item.is_started_anew() && have_changes_failed(item))
            item.act->error = "it runs anew with its old settings";
        item.act->is_done = is_last && item.act->error.empty();
        if (is_last || is_left(item))
            m_tell(item, *item.act);
        if (is_left(item))
            leave_rest(item);
    }

    static bool have_changes_failed(const PlannedItem& item)
    {
        return !item.changes.empty() && !item.changes.front().error.empty();
    }

    static bool is_left(const PlannedItem& item) { return item.act && !item.act->error.empty(); }

    // Of an item of which something failed the rest isn't tried.
    void leave_rest(PlannedItem& item)
    {
        const auto leave = [&](Step& step) {
            if (step.is_done || !step.error.empty())
                return;
            step.error = "not tried";
            m_tell(item, step);
        };
        for (Step& step : item.changes)
            leave(step);
        if (item.act)
            leave(*item.act);
    }

    Plan& m_plan;
    std::uint64_t m_timeout_us;
    std::uint64_t m_told_by;
    const TellStep& m_tell;
};

// The signal of a program that hangs over an input's metadata, or of a reader of the output that has gone,
// must not end the work half-way. A handler, unlike being ignored, goes no further than to this program.
void outlast(int signal)
{
    struct sigaction wakes {};
    wakes.sa_handler = [](int) {};
    ::sigaction(signal, &wakes, nullptr);
}

}  // namespace

bool may_do(const Plan& plan)
{
    bool may = true;
    for (const PlannedItem& item : plan)
        if (!may_change(item)) {
            complain_of(item.id, "may not be changed, " + std::string(std::strerror(errno)));
            may = false;
        }
    return may;
}

void do_plan(Plan& plan, std::uint64_t timeout_us, const TellStep& tell)
{
    outlast(SIGALRM);
    outlast(SIGPIPE);
    Execution(plan, timeout_us, tell).run();
}
