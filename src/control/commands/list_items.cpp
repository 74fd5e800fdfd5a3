#include "control/commands/list_items.hpp"

#include <vector>

#include "control/commands/drivers_of_run.hpp"
#include "control/commands/gather_item.hpp"
#include "control/commands/item_text.hpp"
#include "control/commands/items_of_run.hpp"
#include "control/commands/report_query.hpp"
#include "control/infolist.hpp"
#include "control/items/metadir.hpp"
#include "control/reports/report_queries.hpp"
#include "control/run_state.hpp"
#include "schema/create_emitter.hpp"

namespace {

// Info lists point into them, and an emitter outlives the listing.
Manifests manifests;

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
void gather(Listed& item, const Gathering& gathering, std::shared_ptr<EmitJson>& emitter)
{
    infolist_load(item.list, item.name);
    if (!emitter) {
        std::string driver;
        infolist_get(driver, item.list, "driver");
        emitter = createEmitter(driver);
    }
    add_unasked(item.list, role_of_run(), item.pid, gathering);
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
void complete(Listed& item)
{
    if (item.report)
        note_answer(item.list, merge_reply(item.list, *item.report));
    if (role_of_run().kind == ItemKind::CHANNEL)
        add_file_types(item.list);
}

void hand_over(Listed& item, EmitJson& emitter, std::string& text)
{
    if (wants_json)
        emitter.add(std::move(item.list));
    else
        append_item(text, item.name, item.list);
    item.list = {};
}

// All items are gathered before the first is printed. What is kept of each until then is its text or the
// emitter's copy, far less than its info list.
std::string list_items(std::shared_ptr<EmitJson>& emitter)
{
    const Gathering gathering{read_kernel_uptime(), no_manifest ? nullptr : &manifests, !except_quicksummary};
    std::vector<Listed> items = listed_items();
    ReportQueries queries([] { return report_deadline(per_item_timeout); });
    std::string text;
    const auto begin = [&](Listed& item) {
        gather(item, gathering, emitter);
        ask(item, queries);
    };
    const auto end = [&](Listed& item) {
        complete(item);
        hand_over(item, *emitter, text);
    };
    ask_side_by_side(items, queries, begin, end);
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
