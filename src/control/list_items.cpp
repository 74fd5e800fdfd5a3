#include "control/list_items.hpp"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <map>
#include <sys/stat.h>

#include "control/file_type.hpp"
#include "control/infolist.hpp"
#include "control/items.hpp"
#include "control/print_item.hpp"
#include "control/report_query.hpp"
#include "control/run_state.hpp"
#include "control/running_state.hpp"
#include "schema/create_emitter.hpp"

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

// The manifests of the run, one for each driver, by their paths. Info lists point into them.
std::map<std::string, zelm_config_list> global_cfglist;

const zelm_config_list& manifest_of(const std::string& driver)
{
    const auto [entry, is_new] = global_cfglist.try_emplace(item_argslist_path(driver));
    zelm_config_list& manifest = entry->second;
    if (is_new) {
        manifest.with_texts = 1;
        manifest.load_arglist(entry->first.c_str());
    }
    return manifest;
}

std::string with_three_decimals(double seconds)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.3f", seconds);
    return text;
}

void set_status(InfoList& list, const char* key, std::string value, const char* description)
{
    infolist_item& item = list[key];
    item.value = std::move(value);
    item.marker = '*';
    item.s_flag = true;
    item.quick_summary = true;
    item.nogui_flag = false;
    item.desc = description;
}

void set_transient(InfoList& list, const std::string& key, std::string value)
{
    infolist_item& item = list[key];
    item.value = std::move(value);
    item.marker = '*';
}

void add_process_state(InfoList& list, pid_t pid)
{
    set_status(list, "running", pid != 0 ? "1" : "0", "Media item running status");
    static constexpr char UPTIME[] = "Length of time the media item has been running";
    if (pid == 0) {
        set_status(list, "uptime", "", UPTIME);
        return;
    }
    if (const std::optional<double> uptime = process_uptime(pid))
        set_status(list, "uptime", with_three_decimals(*uptime), UPTIME);
    set_status(list, "pid", std::to_string(pid), "Process ID");
}

// The time of the file that the item plays. The fraction is nanoseconds over a million, as front ends
// have always been given it.
void add_item_mtime(InfoList& list)
{
    const auto item = list.find("item");
    struct stat state {};
    if (except_quicksummary || item == list.end() || ::lstat(item->second.value.c_str(), &state) != 0 ||
        !S_ISREG(state.st_mode))
        return;
    const double mtime =
        static_cast<double>(state.st_mtim.tv_sec) + static_cast<double>(state.st_mtim.tv_nsec) / 1000000;
    set_transient(list, "item mtime", with_three_decimals(mtime));
    infolist_item& entry = list["item mtime"];
    entry.s_flag = true;
    entry.nogui_flag = true;
}

void add_live_report(InfoList& list, const std::string& metadir)
{
    std::string& running = list["running"].value;
    if (std::strtol(running.c_str(), nullptr, 10) <= 0)
        return;
    const int reported = do_list_send_command(active_socket_path(metadir).c_str(), list);
    do_list_send_command(nullptr, list);
    // A number to whoever reads it as one: the item still counts as running.
    if (reported < 1)
        running = "1 hang";
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
        const auto item = list.find(region);
        if (item == list.end())
            continue;
        const std::string& path = item->second.value;
        set_transient(list, region + " file type", has_type(path) ? read_file_type(path) : "");
    }
}

// Here a type that is not known is stored only when there is no such file.
void add_lowest_level_types(InfoList& list)
{
    for (const std::string region : REGIONS) {
        const auto item = list.find(region + " lowest level");
        if (item == list.end())
            continue;
        const std::string& path = item->second.value;
        const bool typed = has_type(path);
        std::string type = typed ? read_file_type(path) : "";
        if (!typed || !type.empty())
            set_transient(list, region + " lowest level file type", std::move(type));
    }
}

void gather(InfoList& list, const std::string& name, pid_t pid, std::shared_ptr<EmitJson>& emitter)
{
    infolist_load(list, name);
    std::string driver;
    infolist_get(driver, list, "driver");
    if (!emitter)
        emitter = createEmitter(driver);
    std::string metadir;
    if (!find_metadir(settings_path(name), metadir) || metadir.empty())
        return;
    if (!no_manifest)
        infolist_fill_from_argslist(list, manifest_of(driver));
    add_process_state(list, pid);
    add_item_mtime(list);
    add_live_report(list, metadir);
    if (exec_mode == MODE_CHANNELS) {
        add_region_types(list);
        add_lowest_level_types(list);
    }
}

bool is_wanted(const std::string& name)
{
    return to_what.empty() || name == to_what;
}

void list_names()
{
    for (const std::string& name : itemlist)
        if (is_wanted(name))
            std::fprintf(stdout_write, "%s\n", name.c_str());
}

}  // namespace

int do_list(std::shared_ptr<EmitJson>& emitter)
{
    read_kernel_uptime();
    if (build_itemlist() != 0)
        return 1;
    if (name_only) {
        list_names();
        return 0;
    }
    // All items are gathered before the first is printed. What is kept of each until then is its text or
    // the emitter's copy, far less than its info list.
    std::string text;
    std::vector<std::string> names;
    std::copy_if(itemlist.begin(), itemlist.end(), std::back_inserter(names), is_wanted);
    const std::vector<pid_t> processes = running_processes(names);
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::string& name = names[i];
        InfoList list;
        gather(list, name, processes[i], emitter);
        if (wants_json)
            emitter->add(std::move(list));
        else
            print_item(text, name, list);
    }
    std::fwrite(text.data(), 1, text.size(), stdout_write);
    return 0;
}
