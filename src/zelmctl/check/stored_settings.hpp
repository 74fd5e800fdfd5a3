// What settings come to once they are in a file.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

#include "settings/settings_reader.hpp"

struct StoredSetting {
    std::string value;     // several lines are joined with a line feed
    std::size_t line = 0;  // where the value begins
};

class StoredSettings {
public:
    // Takes in the setting of a line. The line whose setting it replaces, 0 if it replaces none.
    std::size_t take(const SettingsLine& setting, std::size_t line);

    const StoredSetting* find(std::string_view key) const;
    const auto& all() const { return m_settings; }

private:
    std::map<std::string, StoredSetting, std::less<>> m_settings;
};
