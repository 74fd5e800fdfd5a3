#include "control/items/item_directory.hpp"

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>

#include "control/items/item_names.hpp"

namespace {

bool is_regular(DIR* directory, const dirent& entry)
{
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_REG;
    struct stat state {};
    return ::fstatat(::dirfd(directory), entry.d_name, &state, AT_SYMLINK_NOFOLLOW) == 0 &&
           S_ISREG(state.st_mode);
}

}  // namespace

bool names_item(std::string_view name, const Role& role)
{
    return !name.starts_with('.') && !name.ends_with('~') &&
           (role.kind != ItemKind::CHANNEL || is_valid_channel_name(name));
}

std::string settings_path(const std::string& directory, const std::string& item)
{
    return directory + "/" + item;
}

Descriptor open_item_directory(const std::string& path, int access)
{
    return Descriptor(::open(path.c_str(), access | O_DIRECTORY | O_CLOEXEC));
}

std::optional<std::vector<std::string>> read_item_names(DIR* directory, const Role& role)
{
    std::vector<std::string> names;
    ::rewinddir(directory);
    errno = 0;
    while (const dirent* entry = ::readdir(directory)) {
        if (names_item(entry->d_name, role) && is_regular(directory, *entry))
            names.emplace_back(entry->d_name);
        errno = 0;
    }
    if (errno != 0)
        return std::nullopt;
    std::sort(names.begin(), names.end());
    return names;
}

Descriptor open_settings(int directory, const std::string& name)
{
    return open_regular_file(directory, name.c_str(), SETTINGS_LIMIT);
}
