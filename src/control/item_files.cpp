#include "control/item_files.hpp"

#include <cassert>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "control/child_process.hpp"
#include "control/items.hpp"
#include "control/run_state.hpp"
#include "control/running_state.hpp"
#include "control/usage.hpp"
#include "control/whole_file.hpp"
#include "platform/metadata.hpp"

namespace {

constexpr unsigned STARTITEM_LIMIT_S = 5;
constexpr mode_t NEW_FILE_MODE = 0644;

// What the tool knows to remove from a metadir, in this order.
constexpr const char* METADIR_ENTRIES[] = {
    METADATA_ENTRY,
    "pcn-schedule.xml",
    "current.channel.info",
    ACTIVE_SOCKET_ENTRY,
};

// A new channel's name must be of the right form; the others are free, but for those that another item's
// metadir has or may get.
bool accept_new_name(const std::string& name)
{
    if (exec_mode != MODE_CHANNELS && is_metadir_name(name)) {
        std::fprintf(stdout_write, "Error: %s is the name of a metadata directory\n", name.c_str());
        return false;
    }
    if (exec_mode != MODE_CHANNELS || is_valid_channel_name(name.c_str()))
        return true;
    std::fprintf(stdout_write,
        "Error: Channel name invalid. Channel name must be 'channel' followed by a number less than 1000000\n");
    create_channel_help();
    return false;
}

// Is the item of that name there, as a file? Said on standard output if not.
bool find_existing_item(const std::string& name)
{
    struct stat state {};
    if (::lstat(settings_path(name).c_str(), &state) != 0) {
        if (errno == ENOENT)
            std::fprintf(stdout_write, "Error: No such output\n");
        else
            std::fprintf(stdout_write, "Error: %s\n", std::strerror(errno));
        return false;
    }
    if (!S_ISREG(state.st_mode)) {
        std::fprintf(stdout_write, "Error: filesystem entry not a file\n");
        return false;
    }
    return true;
}

bool refuse_running_item(const std::string& name)
{
    if (is_item_running(name, nullptr) == 0)
        return false;
    std::fprintf(stdout_write, "Error: output is still running\n");
    return true;
}

// The file may have gone since it was found.
bool is_still_there(const std::string& name)
{
    struct stat state {};
    return stat_settings(settings_path(name), state);
}

bool is_free_name(const std::string& name)
{
    struct stat state {};
    if (::lstat(settings_path(name).c_str(), &state) == 0) {
        std::fprintf(stdout_write, "Error: target name already exists\n");
        return false;
    }
    if (errno != ENOENT) {
        std::fprintf(stdout_write, "Error: %s\n", std::strerror(errno));
        return false;
    }
    return true;
}

enum class NewName { REFUSED, UNCHANGED, CHANGED };

// The checks of the two names that clone and rename share, words included.
NewName check_names()
{
    if (!is_item_name(to_what)) {
        std::fprintf(stderr_write, "You must specify what to name the output to rename\n");
        return NewName::REFUSED;
    }
    assert(!mode_list_path.empty());
    if (to_arg.empty() || to_arg == ".." || to_arg.find('/') != std::string::npos) {
        std::fprintf(stderr_write, "You must specify what to rename to\n");
        return NewName::REFUSED;
    }
    if (to_arg == to_what) {
        std::fprintf(stderr_write, "OK. Nothing to change\n");
        return NewName::UNCHANGED;
    }
    return accept_new_name(to_arg) ? NewName::CHANGED : NewName::REFUSED;
}

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

// What is new in the directory outlives a loss of power. The item is there also where that can't be had.
void flush_new_name(int directory)
{
    if (!flush_directory(directory))
        std::fprintf(
            stderr_write, "WARNING: Unable to flush %s, %s\n", mode_list_path.c_str(), std::strerror(errno));
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
    struct stat state {};
    if (directory && ::fstatat(directory.get(), name.c_str(), &state, AT_SYMLINK_NOFOLLOW) == 0) {
        errno = EEXIST;
        return refuse_new_file();
    }
    WholeFile file(directory.get(), name, NEW_FILE_MODE);
    if (!file || !write_whole(file.get(), text) || !file.flush() || !file.publish(name))
        return refuse_new_file();
    flush_new_name(directory.get());
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
    flush_new_name(directory);
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

int do_create()
{
    if (!is_item_name(to_what)) {
        std::fprintf(stderr_write, "You must specify what to name the output to create\n");
        return 1;
    }
    assert(!mode_list_path.empty());
    std::string first_line;
    if (exec_mode == MODE_INPUTS) {
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
    return exec_mode == MODE_INPUTS ? make_input_metadata(settings_path(to_what)) : 0;
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
    return exec_mode == MODE_INPUTS ? make_input_metadata(settings_path(to_arg)) : 0;
}

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
