#include "control/commands/items_of_run.hpp"

#include <cerrno>
#include <cstring>

#include "control/items/driver_word.hpp"
#include "control/items/item_directory.hpp"
#include "control/items/output_drivers.hpp"
#include "control/run_state.hpp"

namespace {

Descriptor open_settings_or_complain(const std::string& item)
{
    const std::string path = settings_path(item);
    Descriptor file = open_settings(AT_FDCWD, path);
    if (!file)
        std::fprintf(stderr_write, "%s config does not exist\n", path.c_str());
    return file;
}

}  // namespace

void set_mode_list_path()
{
    const Role* role = find_role(exec_mode);
    mode_list_path = role ? role->directory : "";
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
    auto names = read_item_names(itemdir.get(), role_of_run());
    if (!names) {
        std::fprintf(stderr_write, "Unable to read %s, %s\n", mode_list_path.c_str(), std::strerror(errno));
        return 1;
    }
    itemlist = std::move(*names);
    return 0;
}

std::string settings_path(const std::string& item)
{
    return settings_path(mode_list_path, item);
}

int read_driver_field(const std::string& item, std::string* driver)
{
    driver->clear();
    const Role& role = role_of_run();
    if (role.driver_source == DriverSource::NOTHING)
        return 0;
    const Descriptor file = open_settings_or_complain(item);
    if (!file)
        return -1;
    const DriverWord read = read_driver(file.get(), role);
    if (read.unknown_marker)
        std::fprintf(stderr_write, "WARNING: unknown marker '%s'. Did you mean #!video-passthru?\n",
            read.unknown_marker->c_str());
    *driver = read.word;
    return 0;
}

int read_driver_daemonize(const std::string& item, bool& autorestart)
{
    autorestart = false;
    const Descriptor file = open_settings_or_complain(item);
    if (!file)
        return -1;
    autorestart = read_autorestart(file.get());
    return 0;
}

bool read_driver_word_or_complain(const std::string& item, std::string& driver)
{
    if (read_driver_field(item, &driver) != 0) {
        std::fprintf(stderr_write, "Unable to read config file\n");
        return false;
    }
    if (role_of_run().kind == ItemKind::OUTPUT && !is_valid_output_driver(driver)) {
        std::fprintf(stderr_write, "WARNING: Unrecognized driver %s\n", driver.c_str());
        driver.clear();
    }
    if (driver.empty())
        std::fprintf(stderr_write, "WARNING: Unable to identify driver\n");
    return true;
}

void flush_items_or_complain(int directory)
{
    if (!flush_directory(directory))
        std::fprintf(
            stderr_write, "WARNING: Unable to flush %s, %s\n", mode_list_path.c_str(), std::strerror(errno));
}
