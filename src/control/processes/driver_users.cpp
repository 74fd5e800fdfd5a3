#include "control/processes/driver_users.hpp"

#include <algorithm>

#include "control/processes/process_status.hpp"

DriverUsers::DriverUsers(const struct stat& metadir, const struct stat& entry)
{
    const bool is_roots = metadir.st_uid == 0;
    const bool others_may_write = (metadir.st_mode & (S_IWGRP | S_IWOTH)) != 0;
    if (is_roots && !others_may_write)
        return;
    m_users = {entry.st_uid};
    // Others who may write root's would choose among root's services.
    if (!is_roots)
        m_users->push_back(metadir.st_uid);
}

bool DriverUsers::include(const char* proc, pid_t process) const
{
    if (!m_users)
        return true;
    const std::vector<uid_t> ids = users_of(proc, process);
    return std::find_first_of(ids.begin(), ids.end(), m_users->begin(), m_users->end()) != ids.end();
}
