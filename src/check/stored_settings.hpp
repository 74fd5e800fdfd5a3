// What settings come to once they are in a file: the tools' rules for several lines of one key.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

struct StoredSetting {
    std::string value;     // several lines are joined with a line feed
    std::size_t line = 0;  // where the value begins
};

class StoredSettings {
public:
    void read_several_lines() { m_several_lines = true; }
    bool reads_several_lines() const { return m_several_lines; }

    // Takes in the setting of a line. The line whose setting it replaces, 0 if it replaces none.
    std::size_t take(std::string_view key, std::string_view value, std::size_t line);

    // Takes in what a "set" of the pair writes.
    void store(std::string_view key, const std::string& value);

    const StoredSetting* find(std::string_view key) const;
    const auto& all() const { return m_settings; }

private:
    std::map<std::string, StoredSetting, std::less<>> m_settings;
    std::string m_last_key;
    bool m_several_lines = false;
};
