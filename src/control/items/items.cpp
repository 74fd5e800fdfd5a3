#include "control/items/items.hpp"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>

#include "control/run_state.hpp"
#include "platform/metadata.hpp"
#include "settings/settings_file.hpp"

namespace {

constexpr const char* OUTPUT_DRIVERS[] = {
    "fbdev",
    "x11",
    "drmkms",
    "shoutcast",
    "oss",
    "alsa",
    "pulseaudio",
    "internet_mpeg",
    "blackmagic_decklink_sdi",
    "newtek_ndi",
    "schedule_push",
};

constexpr std::int64_t SETTINGS_LIMIT = std::int64_t{64} << 20;  // far beyond any item, and soon read

Descriptor open_settings_or_complain(const std::string& item)
{
    const std::string path = settings_path(item);
    Descriptor file = open_settings(AT_FDCWD, path);
    if (!file)
        std::fprintf(stderr_write, "%s config does not exist\n", path.c_str());
    return file;
}

// The value of the last line of that key. The key comes with its "=".
std::string last_value(const Descriptor& file, std::string_view key)
{
    std::string value;
    LineReader lines(file.get());
    for (std::string_view line; lines.next(line);)
        if (line.starts_with(key))
            value = line.substr(key.size());
    return value;
}

// The driver of an input, from the marker in the first line of its file.
std::string marked_driver(const Descriptor& file)
{
    LineReader lines(file.get());
    std::string_view line;
    if (!lines.next(line) || !line.starts_with('#'))
        return {};
    const std::string_view marker = marker_of(line);
    if (const InputType* type = find_input_type(marker))
        return type->driver;
    std::fprintf(stderr_write, "WARNING: unknown marker '%s'. Did you mean #!video-passthru?\n",
        std::string(marker).c_str());
    return {};
}

bool is_regular(const dirent& entry)
{
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_REG;
    struct stat state {};
    return ::fstatat(::dirfd(itemdir.get()), entry.d_name, &state, AT_SYMLINK_NOFOLLOW) == 0 &&
           S_ISREG(state.st_mode);
}

bool is_listed(const dirent& entry)
{
    const std::string_view name = entry.d_name;
    return !name.starts_with('.') && is_regular(entry) && !name.ends_with('~') &&
           (role_of_run().kind != ItemKind::CHANNEL || is_valid_channel_name(entry.d_name));
}

}  // namespace

void set_mode_list_path()
{
    const Role* role = find_role(exec_mode);
    mode_list_path = role ? role->directory : "";
}

std::string settings_path(const std::string& item)
{
    return mode_list_path + "/" + item;
}

bool stat_settings(const std::string& path, struct stat& state)
{
    const bool found = ::lstat(path.c_str(), &state) == 0 && S_ISREG(state.st_mode);
    if (!found)
        std::fprintf(stderr_write, "No such output config %s\n", path.c_str());
    return found;
}

Descriptor open_item_directory(int access)
{
    return Descriptor(::open(mode_list_path.c_str(), access | O_DIRECTORY | O_CLOEXEC));
}

void flush_item_directory(int directory)
{
    if (!flush_directory(directory))
        std::fprintf(
            stderr_write, "WARNING: Unable to flush %s, %s\n", mode_list_path.c_str(), std::strerror(errno));
}

Descriptor open_settings(int directory, const std::string& name)
{
    return open_regular_file(directory, name.c_str(), SETTINGS_LIMIT);
}

bool find_metadir(const std::string& file, std::string& metadir)
{
    char buffer[PATH_MAX + 1];
    const bool found = metadata_v4_file_to_metadir(buffer, sizeof buffer, file.c_str()) == 0;
    metadir = buffer;
    return found;
}

bool find_metadir_or_complain(const std::string& file, std::string& metadir)
{
    const bool found = find_metadir(file, metadir);
    if (!found)
        std::fprintf(stderr_write, "Cannot get metadir\n");
    return found;
}

bool is_item_name(const std::string& name)
{
    return !name.empty() && name != "all" && name != "autostart";
}

bool is_valid_channel_name(const char* name)
{
    constexpr std::string_view PREFIX = "channel";
    const std::string_view text = name;
    if (!text.starts_with(PREFIX))
        return false;
    const std::string_view digits = text.substr(PREFIX.size());
    return !digits.empty() && digits.size() < 7 && digits.front() != '0' &&
           digits.find_first_not_of("0123456789") == std::string_view::npos;
}

bool is_valid_output_driver(const std::string& driver)
{
    return std::find(std::begin(OUTPUT_DRIVERS), std::end(OUTPUT_DRIVERS), driver) !=
           std::end(OUTPUT_DRIVERS);
}

int read_driver_field(const std::string& item, std::string* driver)
{
    driver->clear();
    const DriverSource source = role_of_run().driver_source;
    if (source == DriverSource::NOTHING)
        return 0;
    const Descriptor file = open_settings_or_complain(item);
    if (!file)
        return -1;
    *driver = source == DriverSource::MARKER_LINE ? marked_driver(file) : last_value(file, "driver=");
    return 0;
}

int read_driver_daemonize(const std::string& item, bool& autorestart)
{
    autorestart = false;
    const Descriptor file = open_settings_or_complain(item);
    if (!file)
        return -1;
    autorestart = std::strtol(last_value(file, "autorestart=").c_str(), nullptr, 10) > 0;
    return 0;
}

std::string item_argslist_path(const std::string& driver)
{
    const Role* role = find_role(exec_mode);
    return role ? manifest_path(*role, driver) : "";
}

int build_itemlist()
{
    itemlist.clear();
    if (!itemdir) {
        if (mode_list_path.empty())
            return 1;
        itemdir.reset(::opendir(mode_list_path.c_str()));
        if (!itemdir)
            return 1;
    }
    ::rewinddir(itemdir.get());
    errno = 0;
    while (const dirent* entry = ::readdir(itemdir.get())) {
        if (is_listed(*entry))
            itemlist.emplace_back(entry->d_name);
        errno = 0;
    }
    if (errno != 0) {
        std::fprintf(stderr_write, "Unable to read %s, %s\n", mode_list_path.c_str(), std::strerror(errno));
        return 1;
    }
    std::sort(itemlist.begin(), itemlist.end());
    return 0;
}

void skiptospc(const char*& p)
{
    while (*p == ' ')
        ++p;
    if (*p == '\0')
        return;
    while (*p != '\0' && *p != ' ')
        ++p;
    while (*p == ' ')
        ++p;
}
