// The socket under which a running item is found and asked.
#pragma once

#include <string>
#include <sys/stat.h>

#include "platform/io.hpp"

class ItemSocket {
public:
    ItemSocket() = default;
    ItemSocket(const ItemSocket&) = delete;
    ItemSocket& operator=(const ItemSocket&) = delete;
    ~ItemSocket();  // removes what it made, unless somebody else has put another entry there

    // Listens at the socket entry of the metadir, in place of what a dead driver has left there. A path
    // that is too long for a socket address becomes a symbolic link to a short one, as the kernel's table
    // has to show the path whole. An entry that another driver serves is left to it. False with errno set.
    bool listen(const std::string& metadir, int backlog);

    int get() const { return m_listener.get(); }

    void leave();  // nothing is removed any more

private:
    bool bind_short(const std::string& entry);

    Descriptor m_listener;
    std::string m_entry;   // what to remove: in the metadir,
    std::string m_target;  // and where that leads, if it is a link
    struct stat m_made {};
};
