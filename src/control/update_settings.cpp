#include "control/update_settings.hpp"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "control/items.hpp"
#include "control/live_update.hpp"
#include "control/replacement_file.hpp"
#include "control/rewrite_settings.hpp"
#include "control/run_state.hpp"
#include "control/running_state.hpp"

namespace {

// Owner and group go over to the new file; its mode is the umask's.
void keep_owner(std::FILE* file, const struct stat& settings)
{
    if (::fchown(::fileno(file), settings.st_uid, settings.st_gid) != 0)
        std::fprintf(stderr_write, "Warning: failed to preserve credentials\n");
}

// The settings file changes in one step or stays as it was, byte for byte.
void rewrite_file(const std::string& path, const std::string& metadir, const struct stat& state,
    const SettingValues& settings)
{
    const Descriptor source(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!source) {
        std::fprintf(stderr_write, "Unable to open source\n");
        return;
    }
    if (lock_exclusively(source.get()) != 0) {
        std::fprintf(stderr_write, "Unable to lock %s, %s\n", path.c_str(), std::strerror(errno));
        return;
    }
    ReplacementFile temporary(metadir);
    if (!temporary.stream()) {
        std::fprintf(stderr_write, "Unable to create temp\n");
        return;
    }
    if (!rewrite_settings(source.get(), temporary.stream(), settings)) {
        std::fprintf(stderr_write, "Unable to read source, %s\n", std::strerror(errno));
        return;
    }
    keep_owner(temporary.stream(), state);
    if (!temporary.replace(path))
        std::fprintf(stderr_write, "Unable to replace %s, %s\n", path.c_str(), std::strerror(errno));
}

}  // namespace

int do_set(const std::string& item, const SettingValues& settings)
{
    if (item.empty()) {
        std::fprintf(stderr_write, "%s", NO_OUTPUT_SPECIFIED_MESSAGE);
        return 1;
    }
    const std::string path = settings_path(item);
    struct stat state {};
    std::string metadir;
    if (!stat_settings(path, state) || !find_metadir_or_complain(path, metadir))
        return 0;
    send_live_update(active_socket_path(metadir), settings);
    ::mkdir(metadir.c_str(), 0755);
    rewrite_file(path, metadir, state, settings);
    return 0;
}
