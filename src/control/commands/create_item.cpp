#include "control/commands/create_item.hpp"

#include <cassert>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "control/items/item_names.hpp"
#include "control/items/items.hpp"
#include "control/items/whole_file.hpp"
#include "control/processes/child_process.hpp"
#include "control/run_state.hpp"
#include "control/usage.hpp"
#include "settings/settings_file.hpp"

namespace {

constexpr unsigned STARTITEM_LIMIT_S = 5;
constexpr mode_t NEW_FILE_MODE = 0644;

// Has the outside program prepare a new input's metadata. A program that hangs ends this run by its
// alarm. 1 when it couldn't be forked, else 0: what it answers is not looked at.
int make_input_metadata(const std::string& path)
{
    const pid_t child = ::fork();
    if (child < 0) {
        std::fprintf(stderr_write, "can't make meta\n");
        return 1;
    }
    if (child == 0) {
        keep_standard_descriptors_only();
        execute({"/usr/bin/zelm_startitem", "--file", path, "--identify", "--create-meta"});
    }
    ::alarm(STARTITEM_LIMIT_S);
    ::waitpid(child, nullptr, 0);
    return 0;
}

bool make_item_directory()
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
bool refuse_new_file()
{
    if (errno == EEXIST)
        std::fprintf(stdout_write, "Error: Already exists\n");
    else
        std::fprintf(stdout_write, "Failed to create input, %s\n", std::strerror(errno));
    return false;
}

bool write_whole(int file, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t put = TEMP_FAILURE_RETRY(::write(file, text.data(), text.size()));
        if (put < 0)
            return false;
        text.remove_prefix(static_cast<std::size_t>(put));
    }
    return true;
}

// A new file that holds the text. It has no name until it is whole.
bool make_settings_file(const std::string& name, const std::string& text)
{
    const Descriptor directory = open_item_directory(O_PATH);
    if (!directory)
        return refuse_new_file();
    struct stat state {};
    if (::fstatat(directory.get(), name.c_str(), &state, AT_SYMLINK_NOFOLLOW) == 0) {
        errno = EEXIST;
        return refuse_new_file();
    }
    WholeFile file(directory.get(), name, NEW_FILE_MODE);
    if (!file || !write_whole(file.get(), text) || !file.flush() || !file.publish(name))
        return refuse_new_file();
    flush_item_directory(directory.get());
    return true;
}

bool copy_bytes(int source, int target)
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
bool copy_settings(int directory)
{
    const Descriptor source = open_settings(directory, to_what);
    if (!source) {
        std::fprintf(stderr_write, "Cannot open source file, %s\n", std::strerror(errno));
        return false;
    }
    WholeFile target(directory, to_arg, NEW_FILE_MODE);
    if (!target) {
        std::fprintf(stderr_write, "Cannot open target file, %s\n", std::strerror(errno));
        return false;
    }
    if (!copy_bytes(source.get(), target.get()))
        return false;
    if (!target.flush()) {
        std::fprintf(stderr_write, "Error writing dest, %s\n", std::strerror(errno));
        return false;
    }
    if (!target.publish(to_arg)) {
        std::fprintf(stderr_write, "Cannot open target file, %s\n", std::strerror(errno));
        return false;
    }
    flush_item_directory(directory);
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
    if (!accept_new_name(to_what) || !make_item_directory() || !make_settings_file(to_what, first_line))
        return 1;
    return role_of_run().kind == ItemKind::INPUT ? make_input_metadata(settings_path(to_what)) : 0;
}

int do_clone()
{
    const NewName names = check_names();
    if (names != NewName::CHANGED)
        return names == NewName::UNCHANGED ? 0 : 1;
    std::string metadir;
    if (!find_existing_item(to_what) || !is_still_there(to_what) || !is_free_name(to_arg) ||
        !find_metadir_or_complain(to_what, metadir) || !find_metadir_or_complain(to_arg, metadir))
        return 1;
    const Descriptor directory = open_item_directory();
    if (!directory)
        return 0;
    if (!copy_settings(directory.get()))
        return 1;
    return role_of_run().kind == ItemKind::INPUT ? make_input_metadata(settings_path(to_arg)) : 0;
}
