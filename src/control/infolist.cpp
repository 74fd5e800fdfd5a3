#include "control/infolist.hpp"

#include <cassert>
#include <cstdlib>

#include "control/items.hpp"
#include "control/run_state.hpp"
#include "schema/settings_file.hpp"

namespace {

// What the reader remembers from line to line.
struct ReadState {
    bool multi = false;
    std::string last_key;
};

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

void take_setting(InfoList& list, ReadState& state, std::string_view key, std::string_view value)
{
    auto entry = list.lower_bound(key);
    if (entry == list.end() || entry->first != key)
        entry = list.emplace_hint(entry, key, infolist_item{});
    infolist_item& item = entry->second;
    if (state.multi && key == state.last_key && item.marker == '=' && !item.value.empty()) {
        item.value += '\n';
        item.value += value;
    } else {
        item.value = value;
        item.marker = '=';
    }
    state.last_key = key;
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
    ReadState state;
    LineReader lines(file);
    bool is_first = true;
    for (std::string_view line; lines.next(line); is_first = false) {
        if (exec_mode == MODE_INPUTS && is_first && line.starts_with("#!"))
            take_marker_line(list, line);
        else if (is_multiline_marker(line))
            state.multi = true;
        else if (const std::size_t equals = line.find('='); !line.starts_with('#') && equals != line.npos)
            take_setting(list, state, line.substr(0, equals), line.substr(equals + 1));
    }
    if ((exec_mode == MODE_OUTPUTS || exec_mode == MODE_ROUTERS) && list.count("driver") == 0) {
        infolist_item& driver = list["driver"];
        driver.marker = '?';
        driver.s_flag = true;
    }
}

int infolist_get(std::string& out, const InfoList& list, const char* key)
{
    const auto entry = list.find(key);
    out = entry == list.end() ? "" : entry->second.value;
    return entry == list.end() ? -1 : 0;
}

int infolist_get_autostart(const InfoList& list)
{
    std::string text;
    infolist_get(text, list, "autostart");
    return static_cast<int>(std::strtol(text.c_str(), nullptr, 10));
}

void infolist_fill_from_argslist(InfoList& list, const zelm_config_list& config)
{
    for (const auto& [key, described] : config) {
        const auto [entry, is_new] = list.try_emplace(key);
        infolist_item& item = entry->second;
        item.nogui_flag = described.nogui_flag;
        item.ui_text = described.ui;
        item.s_flag = described.s_flag;
        item.desc = described.description;
        item.quick_summary = described.quick_summary;
        if (is_new) {
            item.value = described.default_value;
            item.marker = described.letter == 0 ? '?' : described.letter;
        }
    }
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
