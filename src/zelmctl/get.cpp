#include "zelmctl/get.hpp"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <utility>

#include "control/commands/gather_item.hpp"
#include "control/reports/merge_report.hpp"
#include "schema/create_emitter.hpp"
#include "zelmctl/appliance/stored_item.hpp"
#include "zelmctl/asked_items.hpp"
#include "zelmctl/check/findings.hpp"
#include "zelmctl/check/known_settings.hpp"
#include "zelmctl/check/value_change.hpp"

using json11::Json;

namespace {

constexpr char GET_HELP[] = R"(usage: zelmctl get [--settings] [--secrets] [--timeout S] [ITEM...]

Prints one JSON object with the items by kind and name: how each runs, and the document of its own driver. ITEM is
like output/main, a kind alone for all of it, or all, which is meant without one.

  --settings   with what the settings file holds
  --secrets    with what gives access, such as passwords
  --timeout S  wait so many seconds at most for what the drivers answer, 15 unless told

Exit status: 0, 1 when an item has an error or one that is named isn't there, 2 trouble.
)";

// Null for a driver without one.
const Schema* schema_of(const AskedItem& item)
{
    return find_schema(item.driver, item.id.role->kind);
}

std::string with_fewest_digits(double number)
{
    char text[64];
    return {text, std::to_chars(text, std::end(text), number, std::chars_format::fixed).ptr};
}

// Beside what the file holds, the list has a driver that an input's type means.
Json settings_of(const InfoList& list, bool has_secrets)
{
    Json::object settings;
    for (const auto& [key, item] : list)
        if (item.marker == '=' && (has_secrets || !is_secret(key)))
            settings[std::string(key)] = lines_of(item.value);
    return settings;
}

// The first value on which a listing as JSON ends.
std::string bad_value(const Schema& schema, const InfoList& list)
{
    std::string bad = "there is no document of its settings";
    bool is_found = false;
    for_each_member(schema.rows, [&](const std::string&, const std::string& key, const MemberFace& member) {
        const infolist_item* const item = is_found ? nullptr : list.find(key);
        if (!item || !ends_listing(member, std::string(item->value)))
            return;
        bad = "no document can hold the " + in_quotes(key) + " of " + in_quotes(item->value);
        is_found = true;
    });
    return bad;
}

// An object as it is added to a text. A tree of all items would take several times the memory and time.
class ObjectText {
public:
    explicit ObjectText(std::string& text) : m_text(text) { m_text += '{'; }
    void end() { m_text += '}'; }

    // The text, for the value of the member to be added.
    std::string& member(const Json& name)
    {
        m_text += std::exchange(m_has_members, true) ? ", " : "";
        name.dump(m_text);
        return m_text += ": ";
    }
    void put(const char* name, const Json& value) { value.dump(member(name)); }

private:
    std::string& m_text;
    bool m_has_members = false;
};

class Answer {
public:
    explicit Answer(const Options& options) : m_options(options)
    {
        m_text.reserve(std::size_t{64} * 1024);
        m_all.emplace(m_text);
    }

    // Items come kind by kind.
    void add(AskedItem& item)
    {
        begin_kinds(item.id.role + 1);
        ObjectText object(m_kind->member(item.id.name));
        object.put("driver", item.driver);
        if (item.has_settings && (m_options.settings || !schema_of(item)))
            object.put("settings", settings_of(item.settings, m_options.secrets));
        add_state(object, item);
        add_document(object, item);
        if (!item.error.empty())
            object.put("error", item.error);
        object.end();
    }

    Status print()
    {
        begin_kinds(std::end(ROLES));
        m_kind->end();
        m_all->end();
        std::puts(m_text.c_str());
        return m_status;
    }

private:
    void begin_kinds(const Role* end)
    {
        for (; m_next_kind < end; ++m_next_kind) {
            if (m_kind)
                m_kind->end();
            m_kind.emplace(m_all->member(plural(*m_next_kind)));
        }
    }

    // Makes of the item's settings what a listing tells.
    void add_state(ObjectText& object, AskedItem& item) const
    {
        const auto uptime = add_unasked(item.settings, *item.id.role, item.process.pid, m_gathering);
        const bool answers = item.has_answered() && merge_report(item.settings, item.report->reply());
        if (item.id.role->kind == ItemKind::CHANNEL)
            add_file_types(item.settings);
        if (!item.process.is_hidden)
            object.put("running", item.runs());
        if (!item.runs())
            return;
        object.put("pid", item.process.pid);
        if (uptime)
            object.member("uptime") += with_fewest_digits(*uptime);
        object.put("answers", answers);
    }

    void add_document(ObjectText& object, AskedItem& item)
    {
        if (!item.has_settings)
            return;
        const Schema* const schema = schema_of(item);
        if (!schema)
            return object.put("document", nullptr);
        const auto emitter = createEmitter(item.driver);
        if (!m_options.secrets)
            emitter->leave_out_secrets();
        emitter->add(item.settings);
        try {
            object.put("document", emitter->emitJson());
        } catch (...) {
            item.add_error(bad_value(*schema, item.settings));
            m_status = IS_NOT_SO;
        }
    }

    const Options& m_options;
    Manifests m_manifests;
    const Gathering m_gathering{read_kernel_uptime(), &m_manifests};
    std::string m_text;
    std::optional<ObjectText> m_all, m_kind;
    const Role* m_next_kind = ROLES;
    Status m_status = IS_SO;
};

Status get(const Options& options)
{
    Answer answer(options);
    const Status status = ask_items(options, [&](AskedItem& item) { answer.add(item); });
    return std::max(status, answer.print());
}

}  // namespace

const Subcommand GET{"get", "--settings --secrets --timeout", Items::ALL_UNLESS_NAMED, GET_HELP, get};
