// The socket under which a running item is found and asked, for drivers that talk on it by themselves.
#pragma once

#include <memory>
#include <string>

namespace zelm_driver {

class ItemSocket {
public:
    ItemSocket();
    ItemSocket(const ItemSocket&) = delete;
    ItemSocket& operator=(const ItemSocket&) = delete;
    ~ItemSocket();  // removes what it made, unless somebody else has put another entry there

    // Listens at the socket entry of the metadir, once in its life, in place of what a dead driver has left
    // there. A path that is too long for a socket address becomes a symbolic link to a short one. Drivers
    // that come up at once wait for each other, two seconds at most. False with errno set, which is
    // EADDRINUSE if somebody serves the entry already: it is left to them.
    bool listen(const std::string& metadir, int backlog);

    // The listening socket: SOCK_SEQPACKET, close-on-exec, and never waiting. -1 before listen().
    int get() const;

    void leave();  // nothing is removed any more

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

}  // namespace zelm_driver
