#include "zelmctl/appliance/appliance_file.hpp"

#include <algorithm>
#include <climits>
#include <unistd.h>
#include <unordered_set>

#include "control/items/item_directory.hpp"
#include "control/items/item_names.hpp"
#include "platform/io.hpp"
#include "schema/driver_words.hpp"
#include "zelmctl/appliance/unique_names.hpp"
#include "zelmctl/check/check_document.hpp"
#include "zelmctl/check/document_effect.hpp"
#include "zelmctl/check/document_shape.hpp"
#include "zelmctl/check/json_position.hpp"
#include "zelmctl/check/known_settings.hpp"

using json11::Json;

namespace {

using Names = std::vector<KnownName>;
using Settings = decltype(WantedItem::settings);

const Names MEMBERS{{"document", {}}, {"driver", {}}, {"settings", {}}, {"state", {}}, {"supervised", {}}};

Names member_names(const Role& role)
{
    Names names = MEMBERS;
    if (role.kind == ItemKind::INPUT)
        names.push_back({"type", {}});
    return names;
}

Names words_of(ItemKind kind)
{
    Names words;
    for (const Schema& schema : SCHEMAS)
        if (schema.kind == kind)
            words.push_back({std::string(schema.driver), {}});
    return words;
}

bool is_one_of(const std::string& name, const Names& names)
{
    return std::any_of(
        names.begin(), names.end(), [&](const KnownName& known) { return known.name == name; });
}

bool can_be_called(const std::string& name, const Role& role)
{
    return is_item_name(name) && names_item(name, role) && name.size() <= NAME_MAX &&
           name.find('/') == name.npos && name.find('\0') == name.npos;
}

bool is_installed(const Role& role, std::string_view driver)
{
    return driver.find('/') == driver.npos && driver.find('\0') == driver.npos &&
           ::access(("/usr/bin/" + driver_program(role, std::string(driver))).c_str(), X_OK) == 0;
}

// Why no line of a file can hold the key; empty if one can.
std::string fault_of_key(std::string_view key)
{
    if (key.empty())
        return "an empty key sets nothing";
    if (is_live_command(key) || key.starts_with('#'))
        return "a key can't begin with \"" + std::string(1, key.front()) + "\"";
    for (const char c : {'=', '\n', '\r'})
        if (key.find(c) != key.npos)
            return c == '=' ? "a key can't hold a \"=\"" : "a key can't hold an end of line";
    return {};
}

std::string fault_of_line(std::string_view key, std::string_view line)
{
    if (line.find('\n') != line.npos)
        return "a text can't hold a line feed; an array of texts is a value of several lines";
    if (line.find('\r') != line.npos)
        return "a text can't hold a carriage return";
    if (key.size() + 1 + line.size() > LineReader::LINE_LIMIT)
        return "a line can't have more than " + std::to_string(LineReader::LINE_LIMIT) +
               " bytes, key and \"=\" among them";
    return {};
}

// What is known of the documents of a driver, and looked up once.
struct KnownKeys {
    explicit KnownKeys(const Schema& schema)
    {
        const KnownSettings settings = known_settings(schema);
        names = names_of_keys(schema, settings);
        for (const auto& [key, members] : settings)
            keys.insert(key);
    }
    const std::string& suggestion_for(const std::string& key)
    {
        const auto [entry, is_new] = suggestions.try_emplace(key);
        if (is_new)
            entry->second = suggestion(key, {}, names);
        return entry->second;
    }

    std::unordered_set<std::string> keys{};
    Names names{};
    std::map<std::string, std::string> suggestions{};
};

class ApplianceReader {
public:
    ApplianceReader(Findings& findings, Findings& unknown) : m_findings(findings), m_unknown(unknown) {}

    WantedAppliance read(Json all)
    {
        m_wanted.json = std::move(all);
        const Json& json = m_wanted.json;
        Names kinds;
        for (const Role& role : ROLES)
            kinds.push_back({plural(role), {}});
        check_members(json, kinds, {});
        for (const Role& role : ROLES)
            if (json.object_items().contains(plural(role))) {
                m_wanted.kinds.push_back(&role);
                read_kind(json[plural(role)], role);
            }
        return std::move(m_wanted);
    }

private:
    // An item while it is read.
    struct Reading {
        const Json& json;
        WantedItem& item;
        std::string path;
    };

    void say(const std::string& path, std::string text) { m_findings.add_of_member(path, std::move(text)); }

    // Whether it is an object.
    bool check_members(const Json& json, const Names& names, const std::string& path)
    {
        if (!json.is_object())
            say(path, "no object");
        for (const auto& [name, member] : json.object_items())
            if (!is_one_of(name, names))
                say(joined(path, name), "unknown member" + suggestion(name, {}, names));
        return json.is_object();
    }

    void read_kind(const Json& json, const Role& role)
    {
        if (!json.is_object())
            return say(plural(role), "no object");
        const Names names = member_names(role);
        for (const auto& [name, member] : json.object_items()) {
            if (m_findings.has_more())
                return;
            m_wanted.items.push_back({{&role, name}, nullptr, {}, Settings(m_wanted.memory.get())});
            Reading reading{member, m_wanted.items.back(), path_of(m_wanted.items.back().id)};
            if (!can_be_called(name, role))
                say(reading.path, "no " + std::string(role.word) + " can be called so");
            if (check_members(member, names, reading.path))
                read_item(reading);
        }
    }

    void read_item(Reading& reading)
    {
        const bool has_settings = read_settings(reading);
        read_type(reading);
        read_running(reading);
        read_driver(reading);
        if (reading.json.object_items().contains("document"))
            read_document(reading);
        if (has_settings)
            tell_unknown_keys(reading);
    }

    bool read_settings(Reading& reading)
    {
        const Json& settings = reading.json["settings"];
        const bool is_there = reading.json.object_items().contains("settings");
        if (is_there && !settings.is_object())
            say(reading.path + ".settings", "no object");
        for (const auto& [key, value] : settings.object_items()) {
            if (m_findings.has_more())
                break;
            if (std::string fault = fault_of_key(key); !fault.empty())
                say(path_of_key(reading, key), std::move(fault));
            auto& wanted = reading.item.settings;
            wanted.emplace_hint(wanted.end(), key, value_of(reading, key, value));
        }
        return is_there;
    }

    static std::string path_of_key(const Reading& reading, const std::string& key)
    {
        return joined(reading.path + ".settings", key);
    }

    std::string_view keep(std::string text) { return m_wanted.kept.emplace_back(std::move(text)); }

    std::optional<std::string_view> value_of(
        const Reading& reading, const std::string& key, const Json& value)
    {
        if (value.is_null())
            return {};
        const auto check = [&](const Json& line, const char* fault) {
            const std::string found = line.is_string() ? fault_of_line(key, line.string_value()) : fault;
            if (!found.empty())
                say(path_of_key(reading, key), found);
        };
        const Json::array& lines = value.array_items();
        if (lines.empty())
            check(value, "wants a text, an array of texts or null");
        if (lines.size() > 1 && lines.front() == Json(""))
            say(path_of_key(reading, key), "a value of several lines can't begin with an empty one");
        if (lines.empty())
            return value.string_value();
        std::string text;
        for (const Json& line : lines) {
            check(line, "wants an array of texts alone");
            text += (&line == &lines.front() ? "" : "\n") + line.string_value();
        }
        return keep(std::move(text));
    }

    // A text that stands there as a member, if it does.
    std::optional<std::string_view> word(const Reading& reading, const char* member)
    {
        const auto found = reading.json.object_items().find(member);
        if (found == reading.json.object_items().end())
            return {};
        if (!found->second.is_string())
            say(reading.path + "." + member, "no text");
        return found->second.string_value();
    }

    void read_type(Reading& reading)
    {
        if (reading.item.id.role->kind != ItemKind::INPUT)
            return;
        const auto marker = word(reading, "type");
        for (const InputType& type : INPUT_TYPES)
            if (marker && *marker == type.marker)
                reading.item.type = &type;
        Names types;
        for (const InputType& type : INPUT_TYPES)
            types.push_back({type.marker, {}});
        if (marker && !reading.item.type)
            say(reading.path + ".type",
                "unknown type of input " + in_quotes(*marker) + suggestion(*marker, {}, types));
    }

    void read_running(Reading& reading)
    {
        const auto state = word(reading, "state");
        if (state && *state != "running" && *state != "stopped")
            say(reading.path + ".state", "wants \"running\" or \"stopped\"");
        if (state)
            reading.item.runs = *state == "running";
        const Json& supervised = reading.json["supervised"];
        if (supervised.is_bool())
            reading.item.supervised = supervised.bool_value();
        else if (reading.json.object_items().contains("supervised"))
            say(reading.path + ".supervised", "wants true or false");
    }

    // Whose item and document it is, by all that tells: they have to agree.
    void read_driver(Reading& reading)
    {
        const Role& role = *reading.item.id.role;
        const bool is_channel = role.kind == ItemKind::CHANNEL;
        const auto driver = word(reading, "driver");
        const auto set = reading.item.settings.find("driver");
        const bool is_set = !is_channel && set != reading.item.settings.end();
        const Json& of_document = reading.json["document"]["driver"];
        if (driver && is_set && set->second != driver)
            say(reading.path + ".settings.driver", "is another word than \"driver\", " + in_quotes(*driver));
        if (driver && reading.item.type && *driver != reading.item.type->driver)
            say(reading.path + ".driver",
                "an input of that type has the driver " + in_quotes(reading.item.type->driver));
        if (is_channel)
            reading.item.driver = "channel";
        else if (driver)
            reading.item.driver = driver;
        else if (reading.item.type)
            reading.item.driver = reading.item.type->driver;
        else if (is_set)
            reading.item.driver = set->second;
        else if (of_document.is_string())
            reading.item.driver = of_document.string_value();
        check_driver(reading, is_channel ? driver : reading.item.driver);
        if (driver && role.driver_source == DriverSource::DRIVER_LINE)
            reading.item.settings["driver"] = driver;
    }

    void check_driver(const Reading& reading, std::optional<std::string_view> driver)
    {
        const Role& role = *reading.item.id.role;
        const bool is_known = !driver || driver->empty() || is_driver_word(*driver, role.kind) ||
                              (role.kind != ItemKind::CHANNEL && is_installed(role, *driver));
        if (!is_known)
            say(reading.path + (reading.json["driver"].is_string() ? ".driver" : ""),
                "no " + std::string(role.word) + " has the driver " + in_quotes(*driver) +
                    suggestion(*driver, {}, words_of(role.kind)));
    }

    void read_document(Reading& reading)
    {
        const std::string path = reading.path + ".document";
        if (!reading.item.driver)
            return say(path, "whose is it? \"driver\" is missing");
        const Schema* const schema = find_schema(*reading.item.driver, reading.item.id.role->kind);
        if (!schema)
            return say(path, "the driver " + in_quotes(*reading.item.driver) + " has no document");
        const std::string text = reading.json["document"].dump();
        Findings of_document;
        const std::string driver(*reading.item.driver);
        check_document(driver, text, of_document);
        for (const Finding& finding : of_document.all())
            say(finding.member.empty() ? path : path + "." + finding.member, finding.text);
        if (const auto effect = effect_of(driver, text))
            for (const std::string& key : effect->keys)
                take_of_document(reading, key_in_file(key), *effect);
    }

    void take_of_document(Reading& reading, const std::string& key, const DocumentEffect& effect)
    {
        const StoredSetting* const stored = effect.settings.find(key);
        const auto value = stored ? std::optional(keep(stored->value)) : std::nullopt;
        const auto [setting, is_new] = reading.item.settings.try_emplace(keep(key), value);
        if (!is_new && (key != "driver" || setting->second != value))
            say(path_of_key(reading, key), "the document sets it, too");
    }

    void tell_unknown_keys(const Reading& reading)
    {
        const Schema* const schema =
            find_schema(reading.item.driver.value_or(""), reading.item.id.role->kind);
        if (!schema)
            return;
        KnownKeys& known = m_known.try_emplace(schema, *schema).first->second;
        for (const auto& [key, value] : reading.json["settings"].object_items())
            if (!known.keys.contains(key) && !m_unknown.has_more())
                m_unknown.add_of_member(path_of_key(reading, key),
                    "stored, though no document tells of it" + known.suggestion_for(key));
    }

    Findings& m_findings;
    Findings& m_unknown;
    WantedAppliance m_wanted;
    std::map<const Schema*, KnownKeys> m_known;
};

}  // namespace

std::string path_of(const ItemId& item)
{
    return joined(plural(*item.role), item.name);
}

WantedAppliance read_appliance(const std::string& text, Findings& findings, Findings& unknown)
{
    auto json = json_of(text, findings);
    if (!json)
        return {};
    find_repeated_names(text, findings);
    return ApplianceReader(findings, unknown).read(std::move(*json));
}
