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

Descriptor take_turn()
{
    Descriptor place(::open(PLACE, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (place && ::flock(place.get(), LOCK_EX | LOCK_NB) == 0)
        return place;
    if (place && errno == EWOULDBLOCK) {
        complain("waiting for another apply to end");
        if (lock_exclusively(place.get()) == 0)
            return place;
    }
    complain(std::string(PLACE) + ": " + std::strerror(errno));
    return {};
}
