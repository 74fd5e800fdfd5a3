// A driver's socket, bound as it should be or amiss in one of these ways:
//   stream           is of another kind
//   relative         under a relative path, which is what the kernel lists
//   moved            under the entry's path, at another file
//   no-link          where the path is too long, under another that leads there, without a link
//   inherited        is not close-on-exec
//   writable         everybody may connect
//   over-served      takes the entry of a driver that serves
//   never-over-dead  gives up where a dead driver left its entry
//   unlocked         doesn't heed the lock of the metadir
//   lock-for-ever    waits for it as long as it takes
#pragma once

#include <string>
#include <string_view>

#include "platform/io.hpp"
#include "zelm_driver/item_socket.hpp"

class OddSocket {
public:
    OddSocket() = default;
    OddSocket(const OddSocket&) = delete;
    OddSocket& operator=(const OddSocket&) = delete;
    ~OddSocket();

    // As ItemSocket has it; without an oddity it is one.
    bool listen(const std::string& metadir, int backlog, std::string_view oddity);
    int get() const;
    void leave();

private:
    bool bind_amiss(const std::string& entry, std::string_view oddity);
    bool bind_moved(const std::string& entry);

    zelm_driver::ItemSocket m_socket;
    Descriptor m_amiss;  // takes the place of the above
    Descriptor m_moved;
    std::string m_entry;
};
