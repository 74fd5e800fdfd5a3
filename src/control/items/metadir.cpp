#include "control/items/metadir.hpp"

#include <climits>
#include <fcntl.h>
#include <unistd.h>

#include "platform/metadata.hpp"

namespace {

// What is known, in the order in which it is removed.
constexpr const char* METADIR_ENTRIES[] = {
    METADATA_ENTRY, "pcn-schedule.xml", "current.channel.info", ACTIVE_SOCKET_ENTRY,
    ".tmpup",  // what a run that died left there before replacements had their name beside the item
};

}  // namespace

bool find_metadir(const std::string& file, std::string& metadir)
{
    char buffer[PATH_MAX + 1];
    const bool found = metadata_v4_file_to_metadir(buffer, sizeof buffer, file.c_str()) == 0;
    metadir = buffer;
    return found;
}

Descriptor open_metadir(int directory, const std::string& name)
{
    return Descriptor(::openat(directory, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

bool remove_metadir(int directory, const std::string& name)
{
    if (const Descriptor opened = open_metadir(directory, name))
        for (const char* entry : METADIR_ENTRIES)
            ::unlinkat(opened.get(), entry, 0);
    return ::unlinkat(directory, name.c_str(), AT_REMOVEDIR) == 0;
}
