#include "control/commands/clone_item.hpp"

#include <cerrno>
#include <cstring>
#include <unistd.h>

#include "control/commands/input_metadata.hpp"
#include "control/commands/item_checks.hpp"
#include "control/commands/items_of_run.hpp"
#include "control/items/item_directory.hpp"
#include "control/items/whole_file.hpp"
#include "control/run_state.hpp"

namespace {

bool copy_bytes_or_complain(int source, int target)
{
    char block[4096];
    for (;;) {
        const ssize_t got = TEMP_FAILURE_RETRY(::read(source, block, sizeof block));
        if (got == 0)
            return true;
        if (got < 0) {
            std::fprintf(stderr_write, "Error reading source, %s\n", std::strerror(errno));
            return false;
        }
        const ssize_t put = TEMP_FAILURE_RETRY(::write(target, block, static_cast<std::size_t>(got)));
        if (put < 0) {
            std::fprintf(stderr_write, "Error writing dest, %s\n", std::strerror(errno));
            return false;
        }
        if (put != got) {
            std::fprintf(stderr_write, "Incomplete write to dest\n");
            return false;
        }
    }
}

// Copies the file to_what to the new file to_arg, both in the directory. A partial copy never has the name.
bool copy_settings_or_complain(int directory)
{
    const Descriptor source = open_settings(directory, to_what);
    if (!source) {
        std::fprintf(stderr_write, "Cannot open source file, %s\n", std::strerror(errno));
        return false;
    }
    WholeFile target(directory, NEW_SETTINGS_MODE);
    if (!target) {
        std::fprintf(stderr_write, "Cannot open target file, %s\n", std::strerror(errno));
        return false;
    }
    if (!copy_bytes_or_complain(source.get(), target.get()))
        return false;
    if (!target.flush()) {
        std::fprintf(stderr_write, "Error writing dest, %s\n", std::strerror(errno));
        return false;
    }
    if (!target.publish(directory, to_arg)) {
        std::fprintf(stderr_write, "Cannot open target file, %s\n", std::strerror(errno));
        return false;
    }
    flush_items_or_complain(directory);
    return true;
}

}  // namespace

int do_clone()
{
    const NewName names = check_names_or_complain();
    if (names != NewName::CHANGED)
        return names == NewName::UNCHANGED ? 0 : 1;
    std::string metadir;
    if (!is_item_or_complain(to_what) || !is_still_item_or_complain(to_what) ||
        !is_free_name_or_complain(to_arg) || !find_metadir_or_complain(to_what, metadir) ||
        !find_metadir_or_complain(to_arg, metadir))
        return 1;
    const Descriptor directory = open_item_directory(mode_list_path);
    if (!directory)
        return 0;
    if (!copy_settings_or_complain(directory.get()))
        return 1;
    return make_input_metadata_or_complain(to_arg);
}
