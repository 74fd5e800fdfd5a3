#include "control/items/rewrite_settings.hpp"

#include <map>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "control/infolist.hpp"
#include "platform/io.hpp"
#include "settings/settings_file.hpp"

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
        if (line.empty() || is_live_command(line))
            return;
        if (is_multiline_marker(line))
            multi = true;
        else if (line.front() == '#')
            write_line(line);
        else
            copy_setting_line(line);
    }

    void write_pairs()
    {
        for (const std::string& key : merged_order)
            fprintf_value(m_out, key, merged[key]);
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

    void copy_setting_line(std::string_view line)
    {
        if (!wrote_marker)
            write_line("#multiline");
        wrote_marker = true;
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos)
            write_line(line);
        else
            copy_setting(line.substr(0, equals), line.substr(equals + 1));
    }

    // A replaced key's new value comes at the end.
    void copy_setting(std::string_view key, std::string_view value)
    {
        if (m_replaced.contains(key))
            return;
        if (multi) {
            fprintf_value(m_out, key, value);
            return;
        }
        const auto [entry, is_new] = merged.try_emplace(std::string(key));
        entry->second = value;
        if (is_new)
            merged_order.push_back(entry->first);
    }

    std::FILE* m_out;
    const SettingValues& m_settings;
    std::unordered_set<std::string_view> m_replaced;
    bool multi = false;         // the source has shown "#multiline"
    bool wrote_marker = false;  // the first setting line has been met
    std::map<std::string, std::string> merged;
    std::vector<std::string> merged_order;
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
