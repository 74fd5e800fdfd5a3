#include "control/commands/list_items.hpp"

#include <sys/stat.h>
#include <vector>

#include "control/commands/drivers_of_run.hpp"
#include "control/commands/item_text.hpp"
#include "control/commands/items_of_run.hpp"
#include "control/commands/report_query.hpp"
#include "control/infolist.hpp"
#include "control/items/file_type.hpp"
#include "control/items/manifests.hpp"
#include "control/items/metadir.hpp"
#include "control/processes/uptime.hpp"
#include "control/reports/report_queries.hpp"
#include "control/run_state.hpp"
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

// Info lists point into them, and an emitter outlives the listing.
Manifests manifests;

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

void add_process_state(InfoList& list, pid_t pid, const KernelClock& clock)
{
    set_status(list, "running", pid != 0 ? "1" : "0", "Media item running status");
    static constexpr char UPTIME[] = "Length of time the media item has been running";
    if (pid == 0) {
        set_status(list, "uptime", "", UPTIME);
        return;
    }
    if (const std::optional<double> uptime = clock.uptime_of(pid))
        set_status(list, "uptime", list.keep(with_three_decimals(*uptime)), UPTIME);
    set_status(list, "pid", list.keep(std::to_string(pid)), "Process ID");
}

// The time of the file that the item plays. The fraction is nanoseconds over a million, as front ends
// have always been given it.
void add_item_mtime(InfoList& list)
{
    const infolist_item* item = list.find("item");
    struct stat state {};
    if (except_quicksummary || !item || item->value.empty() ||
        ::lstat(std::string(item->value).c_str(), &state) != 0 || !S_ISREG(state.st_mode))
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

// An item on its way through the listing.
struct Listed {
    const std::string& name;
    pid_t pid;  // 0 when it doesn't run
    InfoList list;
    std::unique_ptr<ReportExchange> report;  // when it runs
};

// The items of itemlist, as they run at one moment.
std::vector<Listed> listed_items()
{
    const std::vector<pid_t> processes = running_processes(itemlist);
    std::vector<Listed> items;
    items.reserve(itemlist.size());
    for (std::size_t i = 0; i < itemlist.size(); ++i)
        items.push_back({itemlist[i], processes[i], {}, {}});
    return items;
}

// All that is known without asking the item.
void gather(Listed& item, const KernelClock& clock, std::shared_ptr<EmitJson>& emitter)
{
    infolist_load(item.list, item.name);
    std::string driver;
    infolist_get(driver, item.list, "driver");
    if (!emitter)
        emitter = createEmitter(driver);
    if (!no_manifest)
        infolist_fill_from_argslist(item.list, manifests.at(item_argslist_path(driver)));
    add_process_state(item.list, item.pid, clock);
    add_item_mtime(item.list);
}

// A number to whoever reads it as one: the item still counts as running.
void note_answer(InfoList& list, int reported)
{
    if (reported < 1)
        list["running"].value = "1 hang";
}

// Begins to ask a running item. When progress is shown, each is asked to its end, so that it is clear which
// item a message is about.
void ask(Listed& item, ReportQueries& queries)
{
    std::string metadir;
    if (item.pid == 0 || !find_metadir(settings_path(item.name), metadir))
        return;
    const std::string socket = active_socket_path(metadir);
    if (!verbose) {
        item.report = queries.ask(socket);
        return;
    }
    note_answer(item.list, do_list_send_command(socket.c_str(), item.list));
    close_report_connection();
}

// Adds what can only be known once the item has answered, or its time has run out.
void complete(Listed& item, ReportQueries& queries)
{
    if (item.report) {
        queries.finish(*item.report);
        note_answer(item.list, merge_reply(item.list, *item.report));
    }
    if (role_of_run().kind == ItemKind::CHANNEL) {
        add_region_types(item.list);
        add_lowest_level_types(item.list);
    }
}

void hand_over(Listed& item, EmitJson& emitter, std::string& text)
{
    if (wants_json)
        emitter.add(std::move(item.list));
    else
        append_item(text, item.name, item.list);
    item.list = {};
    item.report.reset();
}

// All items are gathered before the first is printed. What is kept of each until then is its text or the
// emitter's copy, far less than its info list.
std::string list_items(std::shared_ptr<EmitJson>& emitter)
{
    const KernelClock clock = read_kernel_uptime();
    std::vector<Listed> items = listed_items();
    ReportQueries queries(per_item_timeout);
    std::string text;
    auto next = items.begin();
    const auto finish_next = [&] {
        complete(*next, queries);
        hand_over(*next++, *emitter, text);
    };
    for (auto item = items.begin(); item != items.end(); ++item) {
        gather(*item, clock, emitter);
        ask(*item, queries);
        while (next <= item && (!next->report || next->report->has_ended()))
            finish_next();
    }
    while (next != items.end())
        finish_next();
    return text;
}

}  // namespace

int run_list()
{
    // Left to the end of the process, which frees them faster than their destructors would.
    static auto* const emitter = new std::shared_ptr<EmitJson>;
    const int result = do_list(*emitter);
    if (wants_json && !name_only) {
        static const auto* const document = new json11::Json(*emitter ? (*emitter)->emitJson() : Document{});
        // Room for the largest document, so that the text does not move while it grows.
        std::string text;
        text.reserve(std::size_t{64} * 1024);
        document->dump(text);
        text += '\n';
        std::fwrite(text.data(), 1, text.size(), stdout_write);
        std::fflush(stdout_write);
    }
    return result;
}

int do_list(std::shared_ptr<EmitJson>& emitter)
{
    if (build_itemlist() != 0)
        return 1;
    std::erase_if(itemlist, [](const std::string& name) { return !to_what.empty() && name != to_what; });
    if (name_only) {
        for (const std::string& name : itemlist)
            std::fprintf(stdout_write, "%s\n", name.c_str());
        return 0;
    }
    const std::string text = list_items(emitter);
    std::fwrite(text.data(), 1, text.size(), stdout_write);
    return 0;
}
