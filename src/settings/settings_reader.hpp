// Reading settings files, the one place that knows what their lines mean. zelm-settings(5) tells the format.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

enum class SettingsLineKind : std::uint8_t {
    COMMENT,    // also the marker in the first line of an input's file
    MULTILINE,  // "#multiline": from here on, lines of one key that follow each other are one value
    SETTING,
    NOTHING,  // has no "="
};

// A line, as views of what was read.
struct SettingsLine {
    SettingsLineKind kind;
    std::string_view key;    // of a setting, as the value
    std::string_view value;  // up to the line's end, with any further "="
    bool goes_on = false;    // the setting in front has the same key, and lines of one key are one value
    bool joins = false;      // and is added to that value behind a line feed, which can't begin a value
};

// Takes the lines of one file in their order. What is no setting doesn't part those of one key.
class SettingsReader {
public:
    SettingsLine read(std::string_view line);

    // Whether "#multiline" has come.
    bool has_values_of_several_lines() const { return m_joins_lines; }

private:
    SettingsLine read_setting(std::string_view key, std::string_view value);

    bool m_joins_lines = false;
    bool m_has_setting = false;
    bool m_is_empty = false;  // the value so far
    std::string m_key;        // of the last setting
};
