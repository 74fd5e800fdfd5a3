#include "control/zelm_outctl.hpp"

#include <cassert>
#include <cerrno>
#include <cstring>

#include "control/command_line.hpp"
#include "control/commands/clone_item.hpp"
#include "control/commands/create_item.hpp"
#include "control/commands/delete_item.hpp"
#include "control/commands/item_status.hpp"
#include "control/commands/items_of_run.hpp"
#include "control/commands/list_items.hpp"
#include "control/commands/rename_item.hpp"
#include "control/commands/restart_item.hpp"
#include "control/commands/start_item.hpp"
#include "control/commands/stop_item.hpp"
#include "control/commands/update_settings.hpp"
#include "control/infolist.hpp"
#include "control/items/item_names.hpp"
#include "control/run_state.hpp"
#include "platform/signals.hpp"
#include "schema/create_consumer.hpp"

namespace {

// What holds for every command. 0, or 1 when the run must end.
int check_arguments(const char* program)
{
    if (!find_role(exec_mode)) {
        std::fprintf(stderr_write, "Error: I don't recognize '%s'\n", program);
        return 1;
    }
    if (to_what == "..") {
        std::fprintf(stderr_write, ".. is not a valid name\n");
        return 1;
    }
    if (to_what.find('/') != std::string::npos) {
        std::fprintf(stderr_write, "forward slashes not allowed in name\n");
        return 1;
    }
    return 0;
}

int run_set(const std::string& json_text, const SettingValues& settings)
{
    if (json_text.empty())
        return do_set(to_what, settings);
    // The document takes the place of the pairs, and its driver is never worked out from the item. It is left
    // to the end of the process, which frees it faster than its destructor would.
    static const auto* const consumer = new auto(createConsumer(json_consume_driver, json_text));
    (*consumer)->createItems();
    return do_set(to_what, (*consumer)->take_items());
}

// What the pseudo-name "all" reaches.
enum class All : std::uint8_t { EVERY_ITEM, THOSE_WITH_AUTOSTART };

bool has_autostart(const std::string& item)
{
    InfoList list;
    infolist_load(list, item);
    return infolist_get_autostart(list) > 0;
}

// One of stop, start and restart, on one item or, by a pseudo-name, on many.
int act_on_items(int (*act)(const std::string& item), All all = All::EVERY_ITEM)
{
    if (to_what.empty()) {
        std::fprintf(stderr_write, "%s", NO_OUTPUT_SPECIFIED_MESSAGE);
        return 1;
    }
    if (is_item_name(to_what))
        return act(to_what);
    if (build_itemlist() != 0)
        return 1;
    const bool reaches_every = to_what == "all" && all == All::EVERY_ITEM;
    for (const std::string& item : itemlist)
        if (reaches_every || has_autostart(item))
            act(item);
    return 0;
}

int dispatch(const std::string& json_text, const SettingValues& settings)
{
    if (command == "set")
        return run_set(json_text, settings);
    if (command == "status")
        return do_status();
    if (command == "list")
        return run_list();
    if (command == "stop")
        return act_on_items(do_stop_item);
    if (command == "start")
        return act_on_items(do_start_item);
    if (command == "restart")
        return act_on_items(do_restart_item, All::THOSE_WITH_AUTOSTART);
    if (command == "create")
        return do_create();
    if (command == "delete")
        return do_delete();
    if (command == "rename")
        return do_rename();
    if (command == "clone")
        return do_clone();
    std::fprintf(stderr_write, "Unknown command %s\n", command.c_str());
    return 1;
}

// A caller must not take an answer that was cut short for the whole. The exit status of "status" is an answer
// of its own and stays.
int flush_output(int result)
{
    if (std::fflush(stdout_write) == 0 && std::ferror(stdout_write) == 0)
        return result;
    std::fprintf(stderr_write, "Unable to write output, %s\n", std::strerror(errno));
    return result == 0 && command != "status" ? 1 : result;
}

}  // namespace

int main_wrapper(int argc, char** argv)
{
    assert(argc >= 1);
    assert(argv[0] != nullptr);
    open_standard_descriptors();
    choose_tool(argv[0]);
    std::string json_text;
    SettingValues settings;
    if (parse_argv(argc, argv, json_text, settings) != 0 || check_arguments(argv[0]) != 0)
        return 1;
    set_mode_list_path();
    util_check_and_unmask_common_signals();
    let_oversized_writes_fail();
    const int result = dispatch(json_text, settings);
    itemdir.reset();
    return flush_output(result);
}
