#include "control/infolist.hpp"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <cstdlib>
#include <unistd.h>
#include <vector>

#include "control/items/item_directory.hpp"
#include "control/run_state.hpp"
#include "settings/settings_file.hpp"

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
class SettingsReader {
public:
    explicit SettingsReader(InfoList& list) : m_list(list) { m_settings.reserve(32); }

    void take(std::string_view line)
    {
        const std::size_t equals = line.find('=');
        if (is_multiline_marker(line))
            m_multi = true;
        else if (!line.starts_with('#') && equals != line.npos)
            take_setting(line.substr(0, equals), line.substr(equals + 1));
    }

    std::vector<Setting>& finish()
    {
        end_value();
        return m_settings;
    }

private:
    void take_setting(std::string_view key, std::string_view value)
    {
        const bool joins = m_multi && !m_settings.empty() && m_settings.back().first == key;
        if (!joins || m_settings.back().second.empty()) {
            end_value();
            m_settings.emplace_back(key, value);
            return;
        }
        if (m_lines.empty())
            m_lines = m_settings.back().second;
        m_lines.append("\n").append(value);
    }

    void end_value()
    {
        if (!m_lines.empty())
            m_settings.back().second = m_list.keep(std::exchange(m_lines, {}));
    }

    InfoList& m_list;
    std::vector<Setting> m_settings;
    std::string m_lines;  // the last setting's value, if it has several
    bool m_multi = false;
};

// The file from where it stands to its end, or to a read error. A regular file gives less than it is asked
// for at its end alone.
std::string rest_of(int file)
{
    std::string text;
    char buffer[16384];
    ssize_t got = -1;
    do {
        got = ::read(file, buffer, sizeof buffer);
        if (got > 0)
            text.append(buffer, static_cast<std::size_t>(got));
    } while (got == static_cast<ssize_t>(sizeof buffer) || (got < 0 && errno == EINTR));
    return text;
}

void write_line(std::FILE* stream, std::string_view key, std::string_view text)
{
    std::fwrite(key.data(), 1, key.size(), stream);
    std::fputc('=', stream);
    std::fwrite(text.data(), 1, text.size(), stream);
    std::fputc('\n', stream);
}

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
    load_infolist_from_file(list, file.get());
    return 0;
}

void load_infolist_from_file(InfoList& list, int file)
{
    std::string_view text = list.keep(rest_of(file));
    if (role_of_run().driver_source == DriverSource::MARKER_LINE && text.starts_with("#!"))
        take_marker_line(list, cut_line(text));
    SettingsReader reader(list);
    while (!text.empty())
        reader.take(cut_line(text));
    std::vector<Setting>& settings = reader.finish();
    std::stable_sort(settings.begin(), settings.end(),
        [](const Setting& one, const Setting& other) { return one.first < other.first; });
    // Of several settings of one key the last counts.
    list.update(settings, [](infolist_item& item, std::string_view value, bool) {
        item.value = value;
        item.marker = '=';
    });
    if (role_of_run().driver_source == DriverSource::DRIVER_LINE && !list.find("driver")) {
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
    return static_cast<int>(std::strtol(text.c_str(), nullptr, 10));
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

void fprintf_value(std::FILE* stream, std::string_view key, std::string_view value)
{
    while (!value.empty()) {
        const std::size_t end = value.find('\n');
        write_line(stream, key, value.substr(0, end));
        value.remove_prefix(end == std::string_view::npos ? value.size() : end + 1);
        // A value that ends in a line feed has one more line, an empty one.
        if (value.empty() && end != std::string_view::npos)
            write_line(stream, key, "");
    }
}
