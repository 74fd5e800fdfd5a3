// Whose processes count as the driver of an item.
#pragma once

#include <optional>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>
#include <vector>

// Whoever may write a metadir chooses which socket the item seems to have, by a link or by handing a socket
// of its own to a process that keeps what it is handed. So only where that is root alone does every process
// count; elsewhere it has to be of the user who owns the metadir or put the entry there.
class DriverUsers {
public:
    DriverUsers() = default;  // everybody

    // `entry` describes the socket's entry itself, not what a link leads to.
    DriverUsers(const struct stat& metadir, const struct stat& entry);

    // Whether the process, of a directory of the form of /proc, is of one of them.
    bool include(const char* proc, pid_t process) const;

private:
    std::optional<std::vector<uid_t>> m_users;  // none: everybody
};
