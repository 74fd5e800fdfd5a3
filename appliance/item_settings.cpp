#include "item_settings.hpp"

#include <charconv>
#include <fcntl.h>

#include "platform/io.hpp"

bool read_item_settings(const std::string& path, ItemSettings& settings)
{
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file)
        return false;
    LineReader lines(file.get());
    std::string last_key;
    bool has_last = false;
    bool multiline = false;
    for (std::string_view line; lines.next(line);) {
        multiline = multiline || line == "#multiline";
        const std::size_t equals = line.find('=');
        if (line.starts_with('#') || equals == std::string_view::npos)
            continue;
        const std::string key(line.substr(0, equals));
        std::string& value = settings[key];
        const bool goes_on = multiline && has_last && key == last_key && !value.empty();
        if (goes_on)
            value += '\n';
        else
            value.clear();
        value += line.substr(equals + 1);
        last_key = key;
        has_last = true;
    }
    return !lines.failed();
}

std::string_view setting_text(const ItemSettings& settings, std::string_view key)
{
    const auto at = settings.find(key);
    return at == settings.end() ? std::string_view() : std::string_view(at->second);
}

std::uint64_t setting_number(const ItemSettings& settings, std::string_view key)
{
    const std::string_view text = setting_text(settings, key);
    std::uint64_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}
