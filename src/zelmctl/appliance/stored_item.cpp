#include "zelmctl/appliance/stored_item.hpp"

#include "control/items/item_directory.hpp"
#include "schema/composite_text.hpp"
#include "settings/settings_reader.hpp"

namespace {

// Of a key that comes again the last value counts, unless its lines are one.
void take(FlatSettings& settings, const SettingsLine& line)
{
    std::string& value = settings.try_emplace(settings.end(), std::string(line.key))->second;
    if (line.joins)
        value.append("\n").append(line.value);
    else
        value = line.value;
}

}  // namespace

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
    for (SettingsReader reader; !left.empty();)
        if (const SettingsLine line = reader.read(cut_line(left));
            line.kind == SettingsLineKind::SETTING && is_stored(line.key))
            take(stored.settings, line);
    return stored;
}

std::string driver_of(const ItemId& id, const StoredItem& item)
{
    if (id.role->driver_source == DriverSource::NOTHING)
        return "channel";
    if (id.role->driver_source == DriverSource::MARKER_LINE)
        return item.type ? item.type->driver : "";
    const auto driver = item.settings.find("driver");
    return driver == item.settings.end() ? "" : driver->second;
}

json11::Json lines_of(std::string_view value)
{
    if (value.find('\n') == value.npos)
        return std::string(value);
    return split(std::string(value), "\n");
}
