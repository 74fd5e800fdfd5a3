#include "control/items/rewrite_settings.hpp"

#include <map>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "platform/io.hpp"
#include "settings/settings_file.hpp"
#include "settings/settings_reader.hpp"

namespace {

class Rewrite {
public:
    Rewrite(std::FILE* out, const SettingChanges& changes, Lines lines)
        : m_out(out), m_changes(changes), m_lines(lines)
    {
        for (const SettingChange& change : changes)
            if (is_stored(change.key))
                m_replaced.insert(change.key);
    }

    void copy_line(std::string_view line)
    {
        const SettingsLine read = m_reader.read(line);
        if (line.empty() || is_live_command(line) || read.kind == SettingsLineKind::MULTILINE)
            return;
        if (read.kind == SettingsLineKind::COMMENT)
            return write_line(line);
        mark();
        if (read.kind == SettingsLineKind::SETTING)
            copy_setting(read.key, read.value);
        else
            write_line(line);
    }

    void write_changes()
    {
        if (m_lines == Lines::WHOLE)
            mark();
        for (const std::string& key : m_folded_keys)
            write_value(key, m_folded[key]);
        for (const auto& [key, value] : m_changes)
            if (is_stored(key) && value)
                write_value(key, *value);
    }

private:
    void mark()
    {
        if (!std::exchange(m_wrote_marker, true))
            write_line("#multiline");
    }

    void write_value(std::string_view key, std::string_view value)
    {
        if (value.empty() && m_lines == Lines::WHOLE)
            write_line(std::string(key) + "=");
        fprintf_value(m_out, key, value);
    }

    void write_line(std::string_view line)
    {
        std::fwrite(line.data(), 1, line.size(), m_out);
        std::fputc('\n', m_out);
    }

    // A replaced key's new value comes at the end.
    void copy_setting(std::string_view key, std::string_view value)
    {
        if (m_replaced.contains(key))
            return;
        if (m_reader.has_values_of_several_lines()) {
            write_value(key, value);
            return;
        }
        const auto [entry, is_new] = m_folded.try_emplace(std::string(key));
        entry->second = value;
        if (is_new)
            m_folded_keys.push_back(entry->first);
    }

    std::FILE* m_out;
    const SettingChanges& m_changes;
    Lines m_lines;
    std::unordered_set<std::string_view> m_replaced;
    SettingsReader m_reader;
    bool m_wrote_marker = false;
    std::map<std::string, std::string> m_folded;  // what several lines of one key come to without the marker
    std::vector<std::string> m_folded_keys;       // in the order of their first lines
};

}  // namespace

bool rewrite_settings(int source, std::FILE* out, const SettingChanges& changes, Lines lines)
{
    Rewrite rewrite(out, changes, lines);
    LineReader reader(source);
    for (std::string_view line; reader.next(line);)
        rewrite.copy_line(line);
    if (reader.failed())
        return false;
    rewrite.write_changes();
    return true;
}
