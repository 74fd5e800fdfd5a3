#include "zelmctl/check/check_settings.hpp"

#include <algorithm>

#include "platform/io.hpp"
#include "zelmctl/check/known_settings.hpp"
#include "zelmctl/check/stored_settings.hpp"
#include "zelmctl/check/value_change.hpp"

namespace {

std::string at(std::size_t line)
{
    return "line " + std::to_string(line);
}

std::vector<KnownName> input_types()
{
    std::vector<KnownName> types;
    for (const InputType& type : INPUT_TYPES)
        types.push_back({type.marker, {}});
    return types;
}

class SettingsCheck {
public:
    SettingsCheck(ItemKind kind, Findings& findings) : m_kind(kind), m_findings(findings) {}

    void take(std::string_view line, const NumberedLines& lines)
    {
        m_line = lines.number();
        if (lines.is_rest())
            return take_rest(line);
        if (line.find('\0') != std::string_view::npos)
            say("holds a NUL");
        if (line.find('\r') != std::string_view::npos)
            say("holds a carriage return, which counts like any other byte");
        if (m_kind == ItemKind::INPUT && m_line == 1 && line.starts_with('#'))
            take_marker(line);
        const SettingsLine read = m_reader.read(line);
        if (read.kind == SettingsLineKind::SETTING)
            take_setting(read);
        else if (read.kind == SettingsLineKind::NOTHING && !line.empty())
            say("sets nothing, having no \"=\": " + in_quotes(line));
    }

    void finish()
    {
        const Schema* const schema = checked_driver();
        const KnownSettings known = known_settings(schema ? *schema : *find_schema("channel"));
        if (schema)
            check_keys(known, names_of_keys(*schema, known));
        check_values(known);
        m_findings.sort_by_line();
    }

private:
    void say(std::string text) { m_findings.add_at_line(m_line, std::move(text)); }

    // A line feed behind as many bytes as a line may have does no harm.
    void take_rest(std::string_view rest)
    {
        if (!rest.empty() && m_line != m_long_line)
            say("has more than " + std::to_string(LineReader::LINE_LIMIT) +
                " bytes, and what is behind them counts as a line of its own");
        m_long_line = m_line;
        m_reader.read(rest);
    }

    // A start takes "#" for "#!", and a listing does not.
    void take_marker(std::string_view line)
    {
        const std::string_view marker = marker_of(line);
        const InputType* const type = find_input_type(marker);
        m_type_driver = {type ? type->driver : "", m_line};
        if (!type)
            return say("unknown type of input " + in_quotes(marker) + suggestion(marker, {}, input_types()));
        if (!line.starts_with("#!"))
            say("a start takes this for the type of the input, and a listing only \"#!\"");
    }

    void take_setting(const SettingsLine& setting)
    {
        if (setting.key.empty())
            return say("sets nothing, having no key in front of the \"=\"");
        if (is_live_command(setting.key))
            return;
        if (const std::size_t replaced = m_settings.take(setting, m_line))
            say("replaces the " + in_quotes(setting.key) + " of " + at(replaced) +
                (m_reader.has_values_of_several_lines() ? ", from which other keys part it"
                                                        : ", without \"#multiline\""));
    }

    // The driver's table, or null, and then it is said why.
    const Schema* checked_driver()
    {
        if (m_kind == ItemKind::CHANNEL)
            return find_schema("channel");
        const StoredSetting driver = m_kind == ItemKind::INPUT ? driver_of_input() : set_driver();
        m_line = driver.line;
        if (driver.value.empty()) {
            say("no driver is named, so that the keys can't be checked");
            return nullptr;
        }
        const Schema* const schema = find_schema(driver.value);
        const std::string suggested = suggestion(driver.value, {}, driver_words());
        if (schema && schema->kind != m_kind)
            say("the driver " + in_quotes(driver.value) + " is of another kind of items");
        else if (!schema && has_no_document(driver.value, m_kind))
            say("the driver " + in_quotes(driver.value) + " has no document, keys are not checked" +
                suggested);
        else if (!schema)
            say("unknown driver word " + in_quotes(driver.value) + suggested);
        return schema;
    }

    StoredSetting set_driver() const
    {
        const StoredSetting* const set = m_settings.find("driver");
        return set ? *set : StoredSetting();
    }

    // What an input is started with, or else what it is listed as.
    StoredSetting driver_of_input()
    {
        const StoredSetting set = set_driver();
        m_line = m_type_driver.line;
        if (m_line == 0)
            say("has no type in its first line, and never starts");
        m_line = set.line;
        if (!m_type_driver.value.empty() && set.line != 0 && set.value != m_type_driver.value)
            say("a listing takes " + in_quotes(set.value) + " for the driver, and a start " +
                in_quotes(m_type_driver.value));
        return m_type_driver.value.empty() ? set : m_type_driver;
    }

    void check_keys(const KnownSettings& known, const std::vector<KnownName>& names)
    {
        for (const auto& [key, setting] : m_settings.all()) {
            if (known.contains(key))
                continue;
            m_line = setting.line;
            say("unknown key " + in_quotes(key) + suggestion(key, {}, names));
            if (m_findings.has_more())
                return;
        }
    }

    void check_values(const KnownSettings& known)
    {
        for (const auto& [key, setting] : m_settings.all()) {
            m_line = setting.line;
            if (counts_as_off(key, setting.value))
                say(in_quotes(setting.value) + " is no number, and counts as 0");
            if (any_ends_listing(known, key, setting.value))
                say("a listing as JSON ends abnormally on the " + in_quotes(key) + " of " +
                    in_quotes(setting.value));
        }
    }

    static bool any_ends_listing(const KnownSettings& known, const std::string& key, const std::string& value)
    {
        const auto members = known.find(key);
        return members != known.end() &&
               std::any_of(members->second.begin(), members->second.end(),
                   [&](const MemberFace& member) { return ends_listing(member, value); });
    }

    ItemKind m_kind;
    Findings& m_findings;
    SettingsReader m_reader;
    StoredSettings m_settings;
    StoredSetting m_type_driver;  // what the type of an input means; no line where there is no type
    std::size_t m_line = 0;
    std::size_t m_long_line = 0;
};

}  // namespace

bool check_settings(int file, ItemKind kind, Findings& findings)
{
    NumberedLines lines(file);
    SettingsCheck check(kind, findings);
    for (std::string_view line; lines.next(line);)
        check.take(line, lines);
    if (lines.failed())
        return false;
    check.finish();
    return true;
}
