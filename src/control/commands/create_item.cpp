#include "control/commands/create_item.hpp"

#include <cassert>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>

#include "control/commands/input_metadata.hpp"
#include "control/commands/item_checks.hpp"
#include "control/commands/items_of_run.hpp"
#include "control/items/item_directory.hpp"
#include "control/items/item_names.hpp"
#include "control/items/whole_file.hpp"
#include "control/run_state.hpp"
#include "control/usage.hpp"
#include "settings/settings_file.hpp"

namespace {

bool make_item_directory_or_complain()
{
    struct stat state {};
    if (::lstat(mode_list_path.c_str(), &state) == 0)
        return true;
    if (errno != ENOENT) {
        std::fprintf(stdout_write, "Error: Cannot stat dir, %s\n", std::strerror(errno));
        return false;
    }
    if (mkdir_p(mode_list_path.c_str(), 0777, -1) != 0 && errno != EEXIST) {
        std::fprintf(stdout_write, "Failed to create dir, %s\n", std::strerror(errno));
        return false;
    }
    return true;
}

// Said where a new file can't be made or written. Errors of writing leave nothing behind.
bool complain_of_new_file()
{
    if (errno == EEXIST)
        std::fprintf(stdout_write, "Error: Already exists\n");
    else
        std::fprintf(stdout_write, "Failed to create input, %s\n", std::strerror(errno));
    return false;
}

// A new file that holds the text. It has no name until it is whole.
bool make_settings_file_or_complain(const std::string& name, const std::string& text)
{
    const Descriptor directory = open_item_directory(mode_list_path, O_PATH);
    if (!directory)
        return complain_of_new_file();
    struct stat state {};
    if (::fstatat(directory.get(), name.c_str(), &state, AT_SYMLINK_NOFOLLOW) == 0) {
        errno = EEXIST;
        return complain_of_new_file();
    }
    WholeFile file(directory.get(), NEW_SETTINGS_MODE);
    if (!file || !write_whole(file.get(), text) || !file.flush() || !file.publish(directory.get(), name))
        return complain_of_new_file();
    return true;
}

}  // namespace

int do_create()
{
    if (!is_item_name(to_what)) {
        std::fprintf(stderr_write, "You must specify what to name the output to create\n");
        return 1;
    }
    assert(!mode_list_path.empty());
    std::string first_line;
    if (role_of_run().kind == ItemKind::INPUT) {
        const InputType* type = find_input_type(var_type);
        if (!type || var_type != type->marker) {
            std::fprintf(stderr_write, "Input creation needs a valid type.\n");
            help();
            return 1;
        }
        first_line = "#!" + var_type + "\n";
    }
    if (!create_item_or_complain(to_what, first_line))
        return 1;
    flush_items_or_complain(open_item_directory(mode_list_path, O_PATH).get());
    return make_input_metadata_or_complain(to_what);
}

bool create_item_or_complain(const std::string& name, const std::string& text)
{
    return accept_new_name_or_complain(name) && make_item_directory_or_complain() &&
           make_settings_file_or_complain(name, text);
}
