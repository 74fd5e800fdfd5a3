#include "control/commands/rename_item.hpp"

#include <cerrno>
#include <cstring>

#include "control/commands/item_checks.hpp"
#include "control/commands/items_of_run.hpp"
#include "control/items/item_directory.hpp"
#include "control/items/replacement_file.hpp"
#include "control/run_state.hpp"

namespace {

// An item that was never set or started has no metadir.
void move_metadir_or_complain(int directory, const std::string& old_metadir, const std::string& new_metadir)
{
    if (!old_metadir.empty() &&
        ::renameat(directory, old_metadir.c_str(), directory, new_metadir.c_str()) != 0 && errno != ENOENT)
        std::fprintf(stderr_write, "WARNING: Failed to rename metadata dir for %s, %s\n", to_what.c_str(),
            std::strerror(errno));
}

}  // namespace

int do_rename()
{
    const NewName names = check_names_or_complain();
    if (names != NewName::CHANGED)
        return names == NewName::UNCHANGED ? 0 : 1;
    std::string old_metadir;
    std::string new_metadir;
    if (!is_item_or_complain(to_what) || !is_stopped_or_complain(to_what) ||
        !is_still_item_or_complain(to_what) || !is_free_name_or_complain(to_arg) ||
        !find_metadir_or_complain(to_what, old_metadir) || !find_metadir_or_complain(to_arg, new_metadir))
        return 1;
    const Descriptor directory = open_item_directory(mode_list_path);
    if (!directory)
        return 0;
    move_metadir_or_complain(directory.get(), old_metadir, new_metadir);
    remove_left_replacement(directory.get(), old_metadir);
    if (::renameat(directory.get(), to_what.c_str(), directory.get(), to_arg.c_str()) != 0) {
        std::fprintf(
            stdout_write, "Error: Failed to rename output %s, %s\n", to_what.c_str(), std::strerror(errno));
        return 1;
    }
    flush_items_or_complain(directory.get());
    return 0;
}
