#include "zelmctl/check/stored_settings.hpp"

std::size_t StoredSettings::take(const SettingsLine& setting, std::size_t line)
{
    StoredSetting& stored = m_settings[std::string(setting.key)];
    if (setting.joins) {
        stored.value.append("\n").append(setting.value);
        return 0;
    }
    const std::size_t replaced = setting.goes_on ? 0 : stored.line;
    stored = {std::string(setting.value), line};
    return replaced;
}

const StoredSetting* StoredSettings::find(std::string_view key) const
{
    const auto entry = m_settings.find(key);
    return entry == m_settings.end() ? nullptr : &entry->second;
}
