#include "zelmctl/appliance/plan.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "control/processes/supervision.hpp"
#include "zelmctl/appliance/stored_item.hpp"
#include "zelmctl/check/known_settings.hpp"
#include "zelmctl/found_items.hpp"
#include "zelmctl/outcome.hpp"
#include "zelmctl/printable.hpp"

using json11::Json;
using Do = Step::Do;

namespace {

// In the order of what is done.
constexpr const char* DO_WORDS[] = {"create", "set", "remove", "start", "stop", "restart", "delete"};

constexpr char HIDDEN[] = "(secret)";

bool has_several_lines(const std::optional<std::string>& value)
{
    return value && value->find('\n') != value->npos;
}

// What an item's file is to change from what is stored.
class FilePlan {
public:
    FilePlan(const WantedItem& wanted, std::optional<StoredItem> stored, bool exact, Findings& findings)
        : m_wanted(wanted), m_stored(std::move(stored)), m_exact(exact),
          m_findings(findings), m_planned{wanted.id, wanted.type}
    {
    }

    PlannedItem make()
    {
        check_type();
        if (!m_stored)
            m_planned.changes.push_back({Do::CREATE});
        static const FlatSettings nothing;
        compare(m_stored ? m_stored->settings : nothing);
        check_supervision();
        return std::move(m_planned);
    }

private:
    void say(const char* member, std::string text)
    {
        m_findings.add_of_member(path_of(m_wanted.id) + "." + member, std::move(text));
    }

    void check_type()
    {
        if (m_wanted.id.role->kind != ItemKind::INPUT)
            return;
        const InputType* const type = m_stored ? m_stored->type : m_wanted.type;
        const std::string is = type ? "the input is of the type " + in_quotes(type->marker)
                                    : std::string("the input has no known type");
        if (!m_stored && !type)
            say("type", "is missing, and there is no such input yet");
        else if (m_wanted.type && m_wanted.type != type)
            say("type", is + ", which nothing changes");
        else if (m_wanted.driver && type && *m_wanted.driver != type->driver)
            say("driver", is + ", whose driver is another");
    }

    // Both are in the order of their keys.
    void compare(const FlatSettings& stored)
    {
        auto at = stored.begin();
        const auto leave_to = [&](const auto& is_before) {
            for (; at != stored.end() && is_before(at->first); ++at)
                if (m_exact && at->first != "driver")
                    change(at->first, at->second, {});
        };
        for (const auto& named : m_wanted.settings) {
            leave_to([&](const std::string& key) { return key < named.first; });
            const bool is_stored = at != stored.end() && at->first == named.first;
            change(named.first, is_stored ? std::optional<std::string_view>(at->second) : std::nullopt,
                named.second);
            at = is_stored ? std::next(at) : at;
        }
        leave_to([](const std::string&) { return true; });
    }

    void change(
        std::string_view key, std::optional<std::string_view> from, std::optional<std::string_view> to)
    {
        if (from == to)
            return;
        m_planned.changes.push_back({to ? Do::SET : Do::REMOVE, std::string(key)});
        m_planned.changes.back().from = from;
        m_planned.changes.back().to = to;
    }

    // Both what is started and what runs on.
    void check_supervision()
    {
        std::string autorestart;
        if (m_stored && m_stored->settings.contains("autorestart"))
            autorestart = m_stored->settings.at("autorestart");
        for (const Step& step : m_planned.changes)
            if (step.key == "autorestart")
                autorestart = step.to.value_or("");
        if (!m_wanted.supervised.value_or(true) && std::strtol(autorestart.c_str(), nullptr, 10) > 0)
            say("supervised", "false, and the item's \"autorestart\" has it supervised");
    }

    const WantedItem& m_wanted;
    std::optional<StoredItem> m_stored;
    bool m_exact;
    Findings& m_findings;
    PlannedItem m_planned;
};

// How the items run that change, or whose running the file is about.
class ActPlan {
public:
    ActPlan(PlannedItem& planned, const WantedItem& wanted, pid_t process)
        : m_planned(planned), m_wanted(wanted), m_process(process)
    {
    }

    void make()
    {
        const bool runs = m_process != 0;
        if (runs && !m_wanted.runs.value_or(true))
            return act(Do::STOP);
        if (!runs && m_wanted.runs.value_or(false))
            return act(Do::START);
        if (std::string why = runs ? reason_to_restart() : ""; !why.empty())
            act(Do::RESTART, std::move(why));
    }

private:
    void act(Do what, std::string why = {})
    {
        m_planned.supervised = m_wanted.supervised.value_or(what == Do::RESTART && is_supervised());
        m_planned.act.emplace(Step{what});
        m_planned.act->why = std::move(why);
    }

    bool is_supervised() const
    {
        return static_cast<bool>(supervisors_of(*m_planned.id.role, m_planned.id.name, m_process).driver);
    }

    std::string reason_to_restart() const
    {
        for (const Step& step : m_planned.changes) {
            if (step.key == "driver" && m_planned.id.role->driver_source == DriverSource::DRIVER_LINE)
                return "its driver changes";
            if (has_several_lines(step.from) || has_several_lines(step.to))
                return in_quotes(step.key) + " has several lines";
        }
        if (m_wanted.supervised && *m_wanted.supervised != is_supervised())
            return *m_wanted.supervised ? "it is to be supervised" : "it is not to be supervised";
        return {};
    }

    PlannedItem& m_planned;
    const WantedItem& m_wanted;
    pid_t m_process;
};

std::string shown(const std::string& key, const std::optional<std::string>& value)
{
    if (!value)
        return "nothing";
    return is_secret(key) ? HIDDEN : "\"" + printable(*value) + "\"";
}

void add_value(
    Json::object& object, const char* name, const Step& step, const std::optional<std::string>& value)
{
    if (value)
        object[name] = is_secret(step.key) ? Json(HIDDEN) : lines_of(*value);
}

class Planning {
public:
    Planning(bool exact, Findings& findings) : m_exact(exact), m_findings(findings) {}

    Status status() const { return m_status; }

    void add_wanted(const WantedItem& item)
    {
        auto stored = read_stored_item(item.id);
        if (!stored && errno != ENOENT) {
            m_status = complain_of(item.id, std::strerror(errno));
            return;
        }
        PlannedItem planned = FilePlan(item, std::move(stored), m_exact, m_findings).make();
        if (!planned.changes.empty() || item.runs || item.supervised)
            add(std::move(planned), &item);
    }

    void add_unwanted(const ItemId& item) { add({item, nullptr, false, false, {Step{Do::DELETE}}}, nullptr); }

    // With how they run; those that need nothing are left out.
    Plan finish()
    {
        const FoundDrivers drivers = find_drivers(m_items);
        m_status = std::max(m_status, drivers.status);
        for (std::size_t i = 0; i < m_items.size(); ++i)
            plan_act(i, drivers.drivers[i]);
        std::erase_if(m_plan, [](const PlannedItem& item) { return !item.act && item.changes.empty(); });
        return std::move(m_plan);
    }

private:
    void add(PlannedItem planned, const WantedItem* wanted)
    {
        m_items.push_back(planned.id);
        m_plan.push_back(std::move(planned));
        m_wanted.push_back(wanted);
    }

    void plan_act(std::size_t i, const RunningDriver& driver)
    {
        m_plan[i].runs = driver.pid != 0;
        if (driver.is_hidden)
            m_status = complain_of(m_items[i], not_to_be_seen().text);
        if (m_wanted[i])
            ActPlan(m_plan[i], *m_wanted[i], driver.pid).make();
        else if (m_plan[i].runs)
            m_plan[i].act.emplace(Step{Do::STOP});
    }

    bool m_exact;
    Findings& m_findings;
    Status m_status = IS_SO;
    Plan m_plan;
    std::vector<ItemId> m_items;              // those of the plan
    std::vector<const WantedItem*> m_wanted;  // likewise, null for those that are to go
};

// Those of the kinds that are named that aren't named themselves.
std::vector<ItemId> unwanted_items(const WantedAppliance& wanted, Status& status)
{
    Selection kinds;
    for (const Role* role : wanted.kinds)
        kinds.add(role->word);
    FoundItems found = find_items(kinds);
    status = std::max(status, found.status);
    std::erase_if(found.items, [&](const ItemId& item) {
        return std::binary_search(wanted.items.begin(), wanted.items.end(), WantedItem{item},
            [](const WantedItem& one, const WantedItem& other) { return one.id < other.id; });
    });
    return std::move(found.items);
}

// In the order in which kinds go up or down.
template <typename Which> std::vector<PlannedItem*> in_order(Plan& plan, Act act, Which which)
{
    std::vector<PlannedItem*> items;
    for (const Kinds& kinds : order_of(act))
        for (const ItemKind kind : kinds)
            for (PlannedItem& item : plan)
                if (item.id.role->kind == kind && which(item))
                    items.push_back(&item);
    return items;
}

}  // namespace

Status make_plan(const WantedAppliance& wanted, bool exact, bool prune, Plan& plan, Findings& findings)
{
    Planning planning(exact, findings);
    Status status = IS_SO;
    for (const WantedItem& item : wanted.items)
        planning.add_wanted(item);
    if (prune)
        for (const ItemId& item : unwanted_items(wanted, status))
            planning.add_unwanted(item);
    plan = planning.finish();
    return std::max(status, planning.status());
}

std::vector<PlannedItem*> changed_first(Plan& plan)
{
    return in_order(plan, Act::UP, [](const PlannedItem& item) {
        return !item.changes.empty() && !item.is_stopped() && !item.is_deleted();
    });
}

std::vector<PlannedItem*> changed_when_stopped(Plan& plan)
{
    return in_order(plan, Act::DOWN, [](const PlannedItem& item) {
        return !item.changes.empty() && (item.is_stopped() || item.is_deleted());
    });
}

std::vector<PlannedStep> steps_of(Plan& plan)
{
    std::vector<PlannedStep> steps;
    const auto add_changes = [&](const std::vector<PlannedItem*>& items) {
        for (const PlannedItem* item : items)
            for (const Step& step : item->changes)
                steps.emplace_back(item, &step);
    };
    const auto add_acts = [&](const std::vector<PlannedItem*>& items) {
        for (const PlannedItem* item : items)
            steps.emplace_back(item, &*item->act);
    };
    add_changes(changed_first(plan));
    add_acts(in_order(
        plan, Act::DOWN, [](const PlannedItem& item) { return item.is_stopped() && !item.is_started(); }));
    add_changes(changed_when_stopped(plan));
    add_acts(in_order(plan, Act::UP, [](const PlannedItem& item) { return item.is_started(); }));
    return steps;
}

std::string line_of(const PlannedItem& item, const Step& step)
{
    const std::string line = printable(item.id) + ": ";
    if (step.what == Do::SET || step.what == Do::REMOVE)
        return line + printable(step.key) + " " + shown(step.key, step.from) + " -> " +
               shown(step.key, step.to);
    const std::string word = DO_WORDS[static_cast<std::size_t>(step.what)];
    if (step.what == Do::CREATE && item.type)
        return line + word + " as " + item.type->marker;
    return line + word + (step.why.empty() ? "" : ", " + printable(step.why));
}

Json::object as_json(const PlannedItem& item, const Step& step)
{
    Json::object object{{"item", std::string(item.id.role->word) + "/" + item.id.name},
        {"do", DO_WORDS[static_cast<std::size_t>(step.what)]}};
    if (step.what == Do::CREATE && item.type)
        object["type"] = item.type->marker;
    if (!step.key.empty())
        object["key"] = step.key;
    add_value(object, "from", step, step.from);
    add_value(object, "to", step, step.to);
    if (!step.why.empty())
        object["why"] = step.why;
    return object;
}
