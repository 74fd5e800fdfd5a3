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
    Rewrite(std::FILE* out, const SettingValues& settings) : m_out(out), m_settings(settings)
    {
        for (const auto& [key, value] : settings)
            if (is_stored(key))
                m_replaced.insert(key);
    }

    void copy_line(std::string_view line)
    {
        const SettingsLine read = m_reader.read(line);
        if (line.empty() || is_live_command(line) || read.kind == SettingsLineKind::MULTILINE)
            return;
        if (read.kind == SettingsLineKind::COMMENT)
            return write_line(line);
        if (!std::exchange(m_wrote_marker, true))
            write_line("#multiline");
        if (read.kind == SettingsLineKind::SETTING)
            copy_setting(read.key, read.value);
        else
            write_line(line);
    }

    void write_pairs()
    {
        for (const std::string& key : m_folded_keys)
            fprintf_value(m_out, key, m_folded[key]);
        for (const auto& [key, value] : m_settings)
            if (is_stored(key))
                fprintf_value(m_out, key, value);
    }

private:
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
            fprintf_value(m_out, key, value);
            return;
        }
        const auto [entry, is_new] = m_folded.try_emplace(std::string(key));
        entry->second = value;
        if (is_new)
            m_folded_keys.push_back(entry->first);
    }

    std::FILE* m_out;
    const SettingValues& m_settings;
    std::unordered_set<std::string_view> m_replaced;
    SettingsReader m_reader;
    bool m_wrote_marker = false;
    std::map<std::string, std::string> m_folded;  // what several lines of one key come to without the marker
    std::vector<std::string> m_folded_keys;       // in the order of their first lines
};

}  // namespace

bool rewrite_settings(int source, std::FILE* out, const SettingValues& settings)
{
    Rewrite rewrite(out, settings);
    LineReader lines(source);
    for (std::string_view line; lines.next(line);)
        rewrite.copy_line(line);
    if (lines.failed())
        return false;
    rewrite.write_pairs();
    return true;
}
