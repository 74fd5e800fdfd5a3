#include "control/commands/item_checks.hpp"

#include <cassert>
#include <cerrno>
#include <cstring>

#include "control/commands/drivers_of_run.hpp"
#include "control/commands/items_of_run.hpp"
#include "control/items/item_names.hpp"
#include "control/items/metadir.hpp"
#include "control/items/replacement_file.hpp"
#include "control/run_state.hpp"
#include "control/usage.hpp"
#include "platform/metadata.hpp"

bool accept_new_name_or_complain(const std::string& name)
{
    if (role_of_run().kind == ItemKind::CHANNEL) {
        if (is_valid_channel_name(name))
            return true;
        std::fprintf(stdout_write, "Error: Channel name invalid. "
                                   "Channel name must be 'channel' followed by a number less than 1000000\n");
        create_channel_help();
        return false;
    }
    if (is_metadir_name(name))
        std::fprintf(stdout_write, "Error: %s is the name of a metadata directory\n", name.c_str());
    else if (is_replacement_name(name))
        std::fprintf(stdout_write, "Error: %s is the name of a temporary file\n", name.c_str());
    else
        return true;
    return false;
}

bool is_free_name_or_complain(const std::string& name)
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

bool is_item_or_complain(const std::string& name)
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

bool stat_settings_or_complain(const std::string& path, struct stat& state)
{
    const bool found = ::lstat(path.c_str(), &state) == 0 && S_ISREG(state.st_mode);
    if (!found)
        std::fprintf(stderr_write, "No such output config %s\n", path.c_str());
    return found;
}

bool is_still_item_or_complain(const std::string& name)
{
    struct stat state {};
    return stat_settings_or_complain(settings_path(name), state);
}

bool is_stopped_or_complain(const std::string& name)
{
    const bool runs = is_item_running(name, nullptr) != 0;
    if (runs)
        std::fprintf(stdout_write, "Error: output is still running\n");
    return !runs;
}

bool find_metadir_or_complain(const std::string& file, std::string& metadir)
{
    const bool found = find_metadir(file, metadir);
    if (!found)
        std::fprintf(stderr_write, "Cannot get metadir\n");
    return found;
}

NewName check_names_or_complain()
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
    return accept_new_name_or_complain(to_arg) ? NewName::CHANGED : NewName::REFUSED;
}
