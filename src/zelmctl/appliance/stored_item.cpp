#include "zelmctl/appliance/stored_item.hpp"

#include "control/items/item_directory.hpp"
#include "schema/composite_text.hpp"
#include "zelmctl/check/stored_settings.hpp"

std::optional<StoredItem> read_stored_item(const ItemId& item)
{
    const Descriptor file = open_settings(AT_FDCWD, settings_path(item.role->directory, item.name));
    std::string text;
    if (!file || !read_file_to_end(file.get(), SETTINGS_LIMIT, text))
        return {};
    StoredItem stored;
    std::string_view left = text;
    if (item.role->driver_source == DriverSource::MARKER_LINE && left.starts_with('#'))
        stored.type = find_input_type(marker_of(cut_line(left)));
    StoredSettings settings;
    for (SettingsReader reader; !left.empty();)
        if (const SettingsLine line = reader.read(cut_line(left));
            line.kind == SettingsLineKind::SETTING && is_stored(line.key))
            settings.take(line, 0);
    for (const auto& [key, setting] : settings.all())
        stored.settings.emplace_hint(stored.settings.end(), key, setting.value);
    return stored;
}

json11::Json lines_of(std::string_view value)
{
    if (value.find('\n') == value.npos)
        return std::string(value);
    return split(std::string(value), "\n");
}
