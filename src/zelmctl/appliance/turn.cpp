#include "zelmctl/appliance/turn.hpp"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>

#include "zelmctl/options.hpp"

namespace {

// Is there whatever items there are, belongs to root, and may be opened by everybody.
constexpr char PLACE[] = "/run";

}  // namespace

Turn::Turn() : m_place(::open(PLACE, O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    if (m_place && ::flock(m_place.get(), LOCK_EX | LOCK_NB) == 0)
        return;
    if (m_place && errno == EWOULDBLOCK) {
        complain("waiting for another apply to end");
        if (lock_exclusively(m_place.get()) == 0)
            return;
    }
    complain(std::string(PLACE) + ": " + std::strerror(errno));
    m_place.reset();
}

Turn::~Turn()
{
    ::flock(m_place.get(), LOCK_UN);
}
