#include "control/processes/debug_output.hpp"

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr char PARENT_DIRECTORY[] = "/mnt/main/tv";
const std::string DEBUG_DIRECTORY = "/mnt/main/tv/debug";

bool is_trusted(const struct stat& made)
{
    return made.st_uid == 0 || made.st_uid == ::geteuid();
}

// What a link holds doesn't change, so that it is read from the very link whose owner was looked at.
Descriptor open_debug_directory()
{
    const Descriptor parent(::open(PARENT_DIRECTORY, O_PATH | O_DIRECTORY | O_CLOEXEC));
    Descriptor entry(::openat(parent.get(), "debug", O_PATH | O_NOFOLLOW | O_CLOEXEC));
    struct stat state {};
    if (!entry || ::fstat(entry.get(), &state) != 0 || !S_ISLNK(state.st_mode))
        return entry;
    const std::string target = is_trusted(state) ? read_link(entry.get()) : "";
    return Descriptor(::openat(parent.get(), target.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

}  // namespace

std::string debug_output_path(const Role& role, const std::string& driver, const std::string& item)
{
    const bool names_driver = role.driver_source != DriverSource::NOTHING;
    return DEBUG_DIRECTORY + "/" + (names_driver ? role.debug_prefix + driver + "." : "") + item;
}

void make_debug_directory()
{
    ::mkdir(DEBUG_DIRECTORY.c_str(), 0755);
}

Descriptor open_debug_output(const std::string& path, const struct stat& settings)
{
    const std::string name = path.substr(DEBUG_DIRECTORY.size() + 1);
    const Descriptor directory = open_debug_directory();
    // The driver's word is whatever the settings say.
    if (!directory || name.find('/') != std::string::npos)
        return {};
    // Without waiting, as a pipe that nobody reads would never open.
    Descriptor file(::openat(directory.get(), name.c_str(),
        O_WRONLY | O_CREAT | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0644));
    struct stat state {};
    if (!file || ::fstat(file.get(), &state) != 0 || !S_ISREG(state.st_mode) ||
        !(is_trusted(state) || state.st_uid == settings.st_uid) ||
        ::fcntl(file.get(), F_SETFL, O_APPEND) != 0)
        return {};
    return file;
}
