#include "item_settings.hpp"

#include <charconv>
#include <fcntl.h>

#include "platform/io.hpp"
#include "settings/settings_reader.hpp"

bool read_item_settings(const std::string& path, ItemSettings& settings)
{
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file)
        return false;
    LineReader lines(file.get());
    SettingsReader reader;
    for (std::string_view line; lines.next(line);) {
        const SettingsLine setting = reader.read(line);
        if (setting.kind != SettingsLineKind::SETTING)
            continue;
        std::string& value = settings[std::string(setting.key)];
        if (setting.joins)
            value += '\n';
        else
            value.clear();
        value += setting.value;
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
