#include "settings/settings_reader.hpp"

SettingsLine SettingsReader::read(std::string_view line)
{
    if (line == "#multiline") {
        m_joins_lines = true;
        return {SettingsLineKind::MULTILINE, {}, {}};
    }
    if (line.starts_with('#'))
        return {SettingsLineKind::COMMENT, {}, {}};
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos)
        return {SettingsLineKind::NOTHING, {}, {}};
    return read_setting(line.substr(0, equals), line.substr(equals + 1));
}

SettingsLine SettingsReader::read_setting(std::string_view key, std::string_view value)
{
    const bool goes_on = m_joins_lines && m_has_setting && key == m_key;
    const bool joins = goes_on && !m_is_empty;
    if (!goes_on)
        m_key = key;
    m_has_setting = true;
    m_is_empty = !joins && value.empty();
    return {SettingsLineKind::SETTING, key, value, goes_on, joins};
}
