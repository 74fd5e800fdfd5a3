#include "control/commands/update_settings.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "control/commands/item_checks.hpp"
#include "control/commands/items_of_run.hpp"
#include "control/items/item_directory.hpp"
#include "control/items/metadir.hpp"
#include "control/items/replacement_file.hpp"
#include "control/reports/live_update.hpp"
#include "control/run_state.hpp"

namespace {

bool stat_opened(const Descriptor& file, struct stat& state)
{
    return file && ::fstat(file.get(), &state) == 0;
}

// Owner and group go over to the new file; its mode is the umask's.
void keep_owner(int file, const struct stat& settings)
{
    if (::fchown(file, settings.st_uid, settings.st_gid) != 0)
        std::fprintf(stderr_write, "Warning: failed to preserve credentials\n");
}

// The item may be deleted or renamed while a set of it is under way.
bool has_gone(int directory, const std::string& item)
{
    struct stat state {};
    return ::fstatat(directory, item.c_str(), &state, AT_SYMLINK_NOFOLLOW) != 0 && errno == ENOENT;
}

bool refuse_to_replace(const std::string& path)
{
    std::fprintf(stderr_write, "Unable to replace %s, %s\n", path.c_str(), std::strerror(errno));
    return false;
}

// The settings file changes in one step or stays as it was, byte for byte. True when it has changed; what
// went wrong has been said otherwise.
bool rewrite_file(int directory, const std::string& item, const std::string& metadir_name,
    const SettingChanges& changes, Lines lines)
{
    const Descriptor source = open_settings(directory, item);
    struct stat state {};
    if (!stat_opened(source, state)) {
        std::fprintf(stderr_write, "Unable to open source\n");
        return false;
    }
    const std::string path = settings_path(item);
    if (lock_exclusively(source.get()) != 0) {
        std::fprintf(stderr_write, "Unable to lock %s, %s\n", path.c_str(), std::strerror(errno));
        return false;
    }
    if (has_gone(directory, item))
        return refuse_to_replace(path);
    const Descriptor metadir = open_metadir(directory, metadir_name);
    ReplacementFile temporary(directory, metadir.get(), metadir_name);
    if (!temporary.stream()) {
        std::fprintf(stderr_write, "Unable to create temp\n");
        return false;
    }
    if (!rewrite_settings(source.get(), temporary.stream(), changes, lines)) {
        std::fprintf(stderr_write, "Unable to read source, %s\n", std::strerror(errno));
        return false;
    }
    keep_owner(::fileno(temporary.stream()), state);
    return temporary.replace(item) || refuse_to_replace(path);
}

// An item that has gone leaves no metadir behind either. One that holds anything stays.
void remove_metadir_of_no_item(int directory, const std::string& item, const std::string& metadir)
{
    if (has_gone(directory, item))
        ::unlinkat(directory, metadir.c_str(), AT_REMOVEDIR);
}

SettingChanges changes_of(SettingValues&& settings)
{
    SettingChanges changes(settings.size());
    std::transform(settings.begin(), settings.end(), changes.begin(), [](auto& setting) {
        return SettingChange{std::move(setting.first), std::move(setting.second)};
    });
    return changes;
}

}  // namespace

int do_set(const std::string& item, SettingValues settings)
{
    if (item.empty()) {
        std::fprintf(stderr_write, "%s", NO_OUTPUT_SPECIFIED_MESSAGE);
        return 1;
    }
    const Descriptor directory = open_item_directory(mode_list_path, O_PATH);
    if (update_settings_or_complain(
            directory.get(), item, changes_of(std::move(settings)), Lines::AS_IN_A_SET, NO_DEADLINE)
            .is_stored)
        flush_items_or_complain(directory.get());
    return 0;
}

SettingsUpdate update_settings_or_complain(int directory, const std::string& item,
    const SettingChanges& changes, Lines lines, std::optional<std::uint64_t> told_by)
{
    SettingsUpdate update;
    const std::string path = settings_path(item);
    struct stat state {};
    std::string metadir;
    if (!stat_settings_or_complain(path, state) || !find_metadir_or_complain(path, metadir))
        return update;
    update.is_told = told_by && send_live_update(active_socket_path(metadir), changes, *told_by);
    const std::string metadir_name = metadir.substr(metadir.rfind('/') + 1);
    make_metadir(directory, metadir_name, state);
    update.is_stored = rewrite_file(directory, item, metadir_name, changes, lines);
    if (!update.is_stored)
        remove_metadir_of_no_item(directory, item, metadir_name);
    return update;
}
