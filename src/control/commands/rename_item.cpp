#include "control/commands/rename_item.hpp"

#include <cassert>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

#include "control/items/item_names.hpp"
#include "control/items/items.hpp"
#include "control/processes/running_state.hpp"
#include "control/run_state.hpp"
#include "platform/metadata.hpp"

namespace {

// What the tool knows to remove from a metadir, in this order.
constexpr const char* METADIR_ENTRIES[] = {
    METADATA_ENTRY,
    "pcn-schedule.xml",
    "current.channel.info",
    ACTIVE_SOCKET_ENTRY,
};

bool refuse_running_item(const std::string& name)
{
    if (is_item_running(name, nullptr) == 0)
        return false;
    std::fprintf(stdout_write, "Error: output is still running\n");
    return true;
}

void move_metadir(int directory, const std::string& old_metadir, const std::string& new_metadir)
{
    if (!old_metadir.empty() &&
        ::renameat(directory, old_metadir.c_str(), directory, new_metadir.c_str()) != 0)
        std::fprintf(stderr_write, "WARNING: Failed to rename metadata dir for %s, %s\n", to_what.c_str(),
            std::strerror(errno));
}

void remove_metadir(int directory, const std::string& metadir)
{
    if (metadir.empty())
        return;
    const Descriptor opened(
        ::openat(directory, metadir.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (opened)
        for (const char* entry : METADIR_ENTRIES)
            ::unlinkat(opened.get(), entry, 0);
    if (::unlinkat(directory, metadir.c_str(), AT_REMOVEDIR) != 0)
        std::fprintf(stderr_write, "WARNING: failed to remove metadir for %s, %s\n", to_what.c_str(),
            std::strerror(errno));
}

}  // namespace

int do_rename()
{
    const NewName names = check_names();
    if (names != NewName::CHANGED)
        return names == NewName::UNCHANGED ? 0 : 1;
    std::string old_metadir;
    std::string new_metadir;
    if (!find_existing_item(to_what) || refuse_running_item(to_what) || !is_still_there(to_what) ||
        !is_free_name(to_arg) || !find_metadir_or_complain(to_what, old_metadir) ||
        !find_metadir_or_complain(to_arg, new_metadir))
        return 1;
    const Descriptor directory = open_item_directory();
    if (!directory)
        return 0;
    move_metadir(directory.get(), old_metadir, new_metadir);
    if (::renameat(directory.get(), to_what.c_str(), directory.get(), to_arg.c_str()) != 0) {
        std::fprintf(
            stdout_write, "Error: Failed to rename output %s, %s\n", to_what.c_str(), std::strerror(errno));
        return 1;
    }
    return 0;
}

int do_delete()
{
    if (!is_item_name(to_what)) {
        std::fprintf(stderr_write, "You must specify what to name the output to delete\n");
        return 1;
    }
    assert(!mode_list_path.empty());
    std::string metadir;
    if (!find_existing_item(to_what) || refuse_running_item(to_what) || !is_still_there(to_what) ||
        !find_metadir_or_complain(to_what, metadir))
        return 1;
    const Descriptor directory = open_item_directory();
    if (!directory)
        return 0;
    remove_metadir(directory.get(), metadir);
    if (::unlinkat(directory.get(), to_what.c_str(), 0) != 0) {
        std::fprintf(stdout_write, "Error: Failed to remove %s, %s\n", to_what.c_str(), std::strerror(errno));
        return 1;
    }
    return 0;
}
