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

// One item: as it is wanted, as it is stored, and how it runs.
class ItemPlan {
public:
    ItemPlan(const WantedItem& wanted, std::optional<StoredItem> stored, const RunningDriver& driver,
        bool exact, Findings& findings)
        : m_wanted(wanted), m_stored(std::move(stored)), m_driver(driver), m_exact(exact),
          m_findings(findings), m_planned{wanted.id, wanted.type, driver.pid != 0}
    {
    }

    PlannedItem make()
    {
        check_type();
        if (!m_stored)
            m_planned.changes.push_back({Do::CREATE});
        for (const auto& [key, value] : m_wanted.settings)
            change(key, value);
        if (m_exact && m_stored)
            remove_unnamed();
        check_supervision();
        if (m_planned.runs)
            plan_running();
        else if (m_wanted.runs.value_or(false))
            act(Do::START);
        return std::move(m_planned);
    }

private:
    const Role& role() const { return *m_wanted.id.role; }

    std::optional<std::string> stored(std::string_view key) const
    {
        if (!m_stored)
            return {};
        const auto found = m_stored->settings.find(key);
        return found == m_stored->settings.end() ? std::nullopt : std::optional(found->second);
    }

    void say(const char* member, std::string text)
    {
        m_findings.add_of_member(path_of(m_wanted.id) + "." + member, std::move(text));
    }

    void check_type()
    {
        if (role().kind != ItemKind::INPUT)
            return;
        if (!m_stored && !m_wanted.type)
            say("type", "is missing, and there is no such input yet");
        else if (m_stored && m_wanted.type && m_stored->type != m_wanted.type)
            say("type", (m_stored->type ? "the input is of the type " + in_quotes(m_stored->type->marker)
                                        : std::string("the input has no known type")) +
                            ", which nothing changes");
    }

    void change(const std::string& key, const std::optional<std::string>& to)
    {
        if (auto from = stored(key); from != to)
            m_planned.changes.push_back({to ? Do::SET : Do::REMOVE, key, std::move(from), to});
    }

    void remove_unnamed()
    {
        for (const auto& [key, value] : m_stored->settings)
            if (key != "driver" && !m_wanted.settings.contains(key))
                change(key, {});
    }

    // Both what is started and what runs on.
    void check_supervision()
    {
        std::optional<std::string> autorestart = stored("autorestart");
        for (const Step& step : m_planned.changes)
            if (step.key == "autorestart")
                autorestart = step.to;
        if (!m_wanted.supervised.value_or(true) &&
            std::strtol(autorestart.value_or("").c_str(), nullptr, 10) > 0)
            say("supervised", "false, and the item's \"autorestart\" has it supervised");
    }

    void act(Do what, std::string why = {})
    {
        m_planned.supervised = m_wanted.supervised.value_or(what == Do::RESTART && is_supervised());
        m_planned.act.emplace(Step{what});
        m_planned.act->why = std::move(why);
    }

    void plan_running()
    {
        if (!m_wanted.runs.value_or(true))
            return act(Do::STOP);
        const std::string why = reason_to_restart();
        if (!why.empty())
            act(Do::RESTART, why);
    }

    std::string reason_to_restart() const
    {
        for (const Step& step : m_planned.changes) {
            if (step.key == "driver" && role().driver_source == DriverSource::DRIVER_LINE)
                return "its driver changes";
            if (has_several_lines(step.from) || has_several_lines(step.to))
                return in_quotes(step.key) + " has several lines";
        }
        if (m_wanted.supervised && *m_wanted.supervised != is_supervised())
            return *m_wanted.supervised ? "it is to be supervised" : "it is not to be supervised";
        return {};
    }

    bool is_supervised() const
    {
        return static_cast<bool>(supervisors_of(role(), m_wanted.id.name, m_driver.pid).driver);
    }

    const WantedItem& m_wanted;
    std::optional<StoredItem> m_stored;
    RunningDriver m_driver;
    bool m_exact;
    Findings& m_findings;
    PlannedItem m_planned;
};

// Those of the kinds that the file names.
Selection selection_of_kinds(const WantedAppliance& wanted)
{
    Selection selection;
    for (const Role* role : wanted.kinds)
        selection.add(role->word);
    return selection;
}

PlannedItem without(const ItemId& item, bool runs)
{
    PlannedItem planned{item, nullptr, runs, false, {Step{Do::DELETE}}};
    if (runs)
        planned.act.emplace(Step{Do::STOP});
    return planned;
}

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
    Planning(const WantedAppliance& wanted, bool exact, Findings& findings)
        : m_wanted(wanted.items), m_exact(exact), m_findings(findings)
    {
        for (const WantedItem& item : m_wanted)
            m_items.push_back(item.id);
    }

    // Those that the file doesn't name are to go.
    void prune(const std::vector<ItemId>& found)
    {
        for (const ItemId& item : found)
            if (!std::binary_search(
                    m_items.begin(), m_items.begin() + static_cast<std::ptrdiff_t>(m_wanted.size()), item))
                m_items.push_back(item);
    }

    Status run(Plan& plan)
    {
        const FoundDrivers drivers = find_drivers(m_items);
        m_status = drivers.status;
        for (std::size_t i = 0; i < m_items.size(); ++i) {
            auto planned = i < m_wanted.size() ? planned_item(m_wanted[i], drivers.drivers[i])
                                               : without(m_items[i], drivers.drivers[i].pid != 0);
            if (planned && drivers.drivers[i].is_hidden && (has_steps(*planned) || asks_how_it_runs(i)))
                m_status = complain_of(m_items[i], not_to_be_seen().text);
            if (planned && has_steps(*planned))
                plan.push_back(std::move(*planned));
        }
        return m_status;
    }

private:
    static bool has_steps(const PlannedItem& item) { return item.act || !item.changes.empty(); }

    bool asks_how_it_runs(std::size_t i) const
    {
        return i < m_wanted.size() && (m_wanted[i].runs || m_wanted[i].supervised);
    }

    std::optional<PlannedItem> planned_item(const WantedItem& item, const RunningDriver& driver)
    {
        auto stored = read_stored_item(item.id);
        if (!stored && errno != ENOENT) {
            m_status = complain_of(item.id, std::strerror(errno));
            return {};
        }
        return ItemPlan(item, std::move(stored), driver, m_exact, m_findings).make();
    }

    const std::vector<WantedItem>& m_wanted;
    bool m_exact;
    Findings& m_findings;
    std::vector<ItemId> m_items;  // the wanted ones, and behind them those that are to go
    Status m_status = IS_SO;
};

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
    Planning planning(wanted, exact, findings);
    const FoundItems found = prune ? find_items(selection_of_kinds(wanted)) : FoundItems();
    planning.prune(found.items);
    return std::max(found.status, planning.run(plan));
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
