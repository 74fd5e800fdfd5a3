#include "control/infolist.hpp"

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <vector>

#include "control/items/item_directory.hpp"
#include "control/run_state.hpp"
#include "settings/settings_reader.hpp"

namespace {

using Setting = std::pair<std::string_view, std::string_view>;

// The driver that the first line of an input's file may name.
void take_marker_line(InfoList& list, std::string_view line)
{
    if (const InputType* type = find_input_type(marker_of(line))) {
        infolist_item& driver = list["driver"];
        driver.value = type->driver;
        driver.s_flag = true;
        driver.marker = '*';
    }
}

// The settings of a file in its order, with the lines of one value joined.
class CollectedSettings {
public:
    explicit CollectedSettings(InfoList& list) : m_list(list) { m_settings.reserve(32); }

    void take(std::string_view line)
    {
        const SettingsLine read = m_reader.read(line);
        if (read.kind != SettingsLineKind::SETTING)
            return;
        if (!read.joins) {
            end_value();
            m_settings.emplace_back(read.key, read.value);
            return;
        }
        if (m_lines.empty())
            m_lines = m_settings.back().second;
        m_lines.append("\n").append(read.value);
    }

    std::vector<Setting>& finish()
    {
        end_value();
        return m_settings;
    }

private:
    void end_value()
    {
        if (!m_lines.empty())
            m_settings.back().second = m_list.keep(std::exchange(m_lines, {}));
    }

    InfoList& m_list;
    SettingsReader m_reader;
    std::vector<Setting> m_settings;
    std::string m_lines;  // the last setting's value, if it has several
};

}  // namespace

int infolist_load(InfoList& list, const std::string& filename)
{
    assert(!filename.empty());
    list.clear();
    if (!itemdir)
        return -1;
    const Descriptor file = open_settings(::dirfd(itemdir.get()), filename);
    if (!file)
        return -1;
    load_infolist_from_file(list, role_of_run(), file.get());
    return 0;
}

void load_infolist_from_file(InfoList& list, const Role& role, int file)
{
    std::string& kept = list.keep({});
    read_file_to_end(file, SETTINGS_LIMIT, kept);
    std::string_view text = kept;
    if (role.driver_source == DriverSource::MARKER_LINE && text.starts_with("#!"))
        take_marker_line(list, cut_line(text));
    CollectedSettings collected(list);
    while (!text.empty())
        collected.take(cut_line(text));
    std::vector<Setting>& settings = collected.finish();
    std::stable_sort(settings.begin(), settings.end(),
        [](const Setting& one, const Setting& other) { return one.first < other.first; });
    // Of several settings of one key the last counts.
    list.update(settings, [](infolist_item& item, std::string_view value, bool) {
        item.value = value;
        item.marker = '=';
    });
    if (role.driver_source == DriverSource::DRIVER_LINE && !list.find("driver")) {
        infolist_item& driver = list["driver"];
        driver.marker = '?';
        driver.s_flag = true;
    }
}

int infolist_get(std::string& out, const InfoList& list, const char* key)
{
    const infolist_item* item = list.find(key);
    out = item ? item->value : "";
    return item ? 0 : -1;
}

int infolist_get_autostart(const InfoList& list)
{
    std::string text;
    infolist_get(text, list, "autostart");
    return static_cast<int>(std::strtoll(text.c_str(), nullptr, 10));
}

void infolist_fill_from_argslist(InfoList& list, const zelm_config_list& config)
{
    list.update(config, [](infolist_item& item, const zelm_config_entry& described, bool is_new) {
        item.nogui_flag = described.nogui_flag;
        item.ui_text = described.ui;
        item.s_flag = described.s_flag;
        item.desc = described.description;
        item.quick_summary = described.quick_summary;
        if (is_new) {
            item.value = described.default_value;
            item.marker = described.letter == 0 ? '?' : described.letter;
        }
    });
}
