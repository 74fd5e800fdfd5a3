#include "control/commands/gather_item.hpp"

#include <cstdio>
#include <sys/stat.h>

#include "control/infolist.hpp"
#include "control/items/file_type.hpp"

namespace {

constexpr const char* REGIONS[] = {
    "item",
    "!alt1",
    "!alt2",
    "background music",
    "global item 1",
    "global item 2",
    "global item 3",
    "global item 4",
    "global item 5",
    "global item 6",
    "global item 7",
    "global item 8",
    "urgent",
};

std::string with_three_decimals(double seconds)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.3f", seconds);
    return text;
}

void set_status(InfoList& list, const char* key, std::string_view value, const char* description)
{
    infolist_item& item = list[key];
    item.value = value;
    item.marker = '*';
    item.s_flag = true;
    item.quick_summary = true;
    item.nogui_flag = false;
    item.desc = description;
}

void set_transient(InfoList& list, std::string_view key, std::string value)
{
    infolist_item& item = list[key];
    item.value = list.keep(std::move(value));
    item.marker = '*';
}

std::optional<double> add_process_state(InfoList& list, pid_t pid, const KernelClock& clock)
{
    set_status(list, "running", pid != 0 ? "1" : "0", "Media item running status");
    static constexpr char UPTIME[] = "Length of time the media item has been running";
    if (pid == 0) {
        set_status(list, "uptime", "", UPTIME);
        return {};
    }
    const std::optional<double> uptime = clock.uptime_of(pid);
    if (uptime)
        set_status(list, "uptime", list.keep(with_three_decimals(*uptime)), UPTIME);
    set_status(list, "pid", list.keep(std::to_string(pid)), "Process ID");
    return uptime;
}

// The time of the file that the item plays. The fraction is nanoseconds over a million, as front ends
// have always been given it.
void add_item_mtime(InfoList& list)
{
    const infolist_item* item = list.find("item");
    struct stat state {};
    if (!item || item->value.empty() || ::lstat(std::string(item->value).c_str(), &state) != 0 ||
        !S_ISREG(state.st_mode))
        return;
    const double mtime =
        static_cast<double>(state.st_mtim.tv_sec) + static_cast<double>(state.st_mtim.tv_nsec) / 1000000;
    set_transient(list, "item mtime", with_three_decimals(mtime));
    infolist_item& entry = list["item mtime"];
    entry.s_flag = true;
    entry.nogui_flag = true;
}

// Is there a file or directory that can have a type?
bool has_type(const std::string& path)
{
    struct stat state {};
    return !path.empty() && ::lstat(path.c_str(), &state) == 0 &&
           (S_ISDIR(state.st_mode) || S_ISREG(state.st_mode));
}

// The type is stored even if it is not known.
void add_region_types(InfoList& list)
{
    for (const std::string region : REGIONS) {
        const infolist_item* item = list.find(region);
        if (!item)
            continue;
        const std::string path(item->value);
        set_transient(list, list.keep(region + " file type"), has_type(path) ? read_file_type(path) : "");
    }
}

// Here a type that is not known is stored only when there is no such file.
void add_lowest_level_types(InfoList& list)
{
    for (const std::string region : REGIONS) {
        const infolist_item* item = list.find(region + " lowest level");
        if (!item)
            continue;
        const std::string path(item->value);
        const bool typed = has_type(path);
        std::string type = typed ? read_file_type(path) : "";
        if (!typed || !type.empty())
            set_transient(list, list.keep(region + " lowest level file type"), std::move(type));
    }
}

}  // namespace

std::optional<double> add_unasked(InfoList& list, const Role& role, pid_t process, const Gathering& gathering)
{
    std::string driver;
    infolist_get(driver, list, "driver");
    if (gathering.manifests)
        infolist_fill_from_argslist(list, gathering.manifests->at(manifest_path(role, driver)));
    const std::optional<double> uptime = add_process_state(list, process, gathering.clock);
    if (gathering.has_item_time)
        add_item_mtime(list);
    return uptime;
}

void add_file_types(InfoList& list)
{
    add_region_types(list);
    add_lowest_level_types(list);
}
