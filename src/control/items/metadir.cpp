#include "control/items/metadir.hpp"

#include <climits>
#include <fcntl.h>
#include <linux/capability.h>
#include <sys/fsuid.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "platform/metadata.hpp"

namespace {

// What is known, in the order in which it is removed.
constexpr const char* METADIR_ENTRIES[] = {
    METADATA_ENTRY, "pcn-schedule.xml", "current.channel.info", ACTIVE_SOCKET_ENTRY,
    ".tmpup",  // what a run that died left there before replacements had their name beside the item
};

// Giving up root's user id for files gives up root's access to them, too.
void keep_access_to_directories()
{
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct sets[_LINUX_CAPABILITY_U32S_3]{};
    if (::syscall(SYS_capget, &header, sets) != 0)
        return;
    sets[0].effective |= sets[0].permitted & (1U << CAP_DAC_OVERRIDE);
    ::syscall(SYS_capset, &header, sets);
}

// While it lasts, what the process makes belongs to that user and group, as far as the process may have it
// so.
class FileOwner {
public:
    FileOwner(uid_t user, gid_t group)
        : m_group(static_cast<gid_t>(::setfsgid(group))), m_user(static_cast<uid_t>(::setfsuid(user)))
    {
        if (m_user != user)
            keep_access_to_directories();
    }
    ~FileOwner()
    {
        ::setfsuid(m_user);
        ::setfsgid(m_group);
    }
    FileOwner(const FileOwner&) = delete;
    FileOwner& operator=(const FileOwner&) = delete;

private:
    gid_t m_group;  // those of before
    uid_t m_user;
};

}  // namespace

bool find_metadir(const std::string& file, std::string& metadir)
{
    char buffer[PATH_MAX + 1];
    const bool found = metadata_v4_file_to_metadir(buffer, sizeof buffer, file.c_str()) == 0;
    metadir = buffer;
    return found;
}

std::string active_socket_path(const std::string& metadir)
{
    return metadir + "/" + ACTIVE_SOCKET_ENTRY;
}

Descriptor open_metadir(int directory, const std::string& name)
{
    return Descriptor(::openat(directory, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

// Not made and given away: whoever may rename it in between would have another directory given away.
void make_metadir(int directory, const std::string& name, const struct stat& settings)
{
    const FileOwner owner(settings.st_uid, settings.st_gid);
    ::mkdirat(directory, name.c_str(), 0755);
}

bool remove_metadir(int directory, const std::string& name)
{
    if (const Descriptor opened = open_metadir(directory, name))
        for (const char* entry : METADIR_ENTRIES)
            ::unlinkat(opened.get(), entry, 0);
    return ::unlinkat(directory, name.c_str(), AT_REMOVEDIR) == 0;
}
