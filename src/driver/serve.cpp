#include "zelm_driver/server.hpp"

#include <array>
#include <poll.h>

#include "platform/io.hpp"
#include "platform/signals.hpp"

namespace zelm_driver {

bool serve(const std::string& settings_path, Item& item)
{
    const Descriptor signals = hold_back_end_signals();
    Server server;
    if (!signals || !server.open(settings_path))
        return false;
    std::array<pollfd, 2> waited{{{signals.get(), POLLIN, 0}, {server.descriptor(), POLLIN, 0}}};
    while (waited[0].revents == 0) {
        ::poll(waited.data(), waited.size(), -1);
        server.answer(item);
    }
    return true;
}

}  // namespace zelm_driver
