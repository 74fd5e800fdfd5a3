#include "zelmctl/appliance/turn.hpp"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "zelmctl/options.hpp"

namespace {

// Both are there whatever items there are, and are no neighbour's to put there. Whoever may open the place
// can keep others waiting for ever, so that root has one of its own.
constexpr char PLACE[] = "/run";
constexpr char PLACE_OF_ROOT[] = "/run/zelmctl.lock";

int open_place()
{
    return ::geteuid() == 0 ? ::open(PLACE_OF_ROOT, O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600)
                            : ::open(PLACE, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

}  // namespace

Turn::Turn() : m_place(open_place())
{
    if (m_place && ::flock(m_place.get(), LOCK_EX | LOCK_NB) == 0)
        return;
    if (m_place && errno == EWOULDBLOCK) {
        complain("waiting for another apply to end");
        if (lock_exclusively(m_place.get()) == 0)
            return;
    }
    complain("no turn can be had: " + std::string(std::strerror(errno)));
    m_place.reset();
}

Turn::~Turn()
{
    ::flock(m_place.get(), LOCK_UN);
}
