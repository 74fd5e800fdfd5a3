#include "check/stored_settings.hpp"

#include "platform/io.hpp"
#include "schema/composite_text.hpp"
#include "settings/settings_file.hpp"

std::size_t StoredSettings::take(std::string_view key, std::string_view value, std::size_t line)
{
    const bool goes_on = m_several_lines && key == m_last_key;
    m_last_key = key;
    const auto [entry, is_new] = m_settings.try_emplace(m_last_key);
    StoredSetting& setting = entry->second;
    if (!is_new && goes_on && !setting.value.empty()) {
        setting.value.append("\n").append(value);
        return 0;
    }
    const std::size_t replaced = goes_on ? 0 : setting.line;
    setting = {std::string(value), line};
    return replaced;
}

void StoredSettings::store(std::string_view key, const std::string& value)
{
    if (!is_stored(key) || value.empty())
        return;
    for (const std::string& text : split(value, "\n")) {
        const std::string line = std::string(key) + "=" + text;
        for (std::size_t at = 0; at < line.size(); at += LineReader::LINE_LIMIT) {
            const std::string_view piece = std::string_view(line).substr(at, LineReader::LINE_LIMIT);
            const std::size_t equals = piece.find('=');
            if (!piece.starts_with('#') && equals != std::string_view::npos)
                take(piece.substr(0, equals), piece.substr(equals + 1), 0);
        }
    }
}

const StoredSetting* StoredSettings::find(std::string_view key) const
{
    const auto entry = m_settings.find(key);
    return entry == m_settings.end() ? nullptr : &entry->second;
}
