#include "control/commands/delete_item.hpp"

#include <cassert>
#include <cerrno>
#include <cstring>
#include <unistd.h>

#include "control/commands/item_checks.hpp"
#include "control/commands/items_of_run.hpp"
#include "control/items/item_directory.hpp"
#include "control/items/item_names.hpp"
#include "control/items/metadir.hpp"
#include "control/items/replacement_file.hpp"
#include "control/run_state.hpp"

int do_delete()
{
    if (!is_item_name(to_what)) {
        std::fprintf(stderr_write, "You must specify what to name the output to delete\n");
        return 1;
    }
    return delete_item(to_what);
}

int delete_item(const std::string& item)
{
    assert(!mode_list_path.empty());
    std::string metadir;
    if (!is_item_or_complain(item) || !is_stopped_or_complain(item) || !is_still_item_or_complain(item) ||
        !find_metadir_or_complain(item, metadir))
        return 1;
    const Descriptor directory = open_item_directory(mode_list_path);
    if (!directory)
        return 0;
    if (!metadir.empty() && !remove_metadir(directory.get(), metadir) && errno != ENOENT)
        std::fprintf(stderr_write, "WARNING: failed to remove metadir for %s, %s\n", item.c_str(),
            std::strerror(errno));
    remove_left_replacement(directory.get(), metadir);
    if (::unlinkat(directory.get(), item.c_str(), 0) != 0) {
        std::fprintf(stdout_write, "Error: Failed to remove %s, %s\n", item.c_str(), std::strerror(errno));
        return 1;
    }
    flush_items_or_complain(directory.get());
    return 0;
}
