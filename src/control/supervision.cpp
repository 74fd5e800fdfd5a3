#include "control/supervision.hpp"

#include <cstdlib>

#include "control/run_state.hpp"

namespace {

constexpr char DAEMON[] = "/usr/bin/daemon";

// With the dot that ends it.
const char* kind_word()
{
    switch (exec_mode) {
    case MODE_CHANNELS: return "channel.";
    case MODE_OUTPUTS: return "output.";
    case MODE_INPUTS: return "input.";
    case MODE_ROUTERS: return "router.";
    case MODE_UNKNOWN: break;
    }
    std::abort();
}

// A name that the manager takes: blanks and control bytes become "__".
std::string safe_name(const std::string& item)
{
    std::string safe;
    for (const char byte : item) {
        if (static_cast<unsigned char>(byte) <= 32)
            safe += "__";
        else
            safe += byte;
    }
    return safe;
}

}  // namespace

std::string driver_name_switch(const std::string& item)
{
    return std::string("--name=tavorn.") + kind_word() + safe_name(item);
}

std::string watchdog_name_switch(const std::string& item)
{
    return std::string("--name=tavorn.watchdog.") + kind_word() + safe_name(item);
}

Arguments supervise(const std::string& name_switch, const Arguments& process)
{
    Arguments arguments{DAEMON, "--noconfig", name_switch, "--respawn", "--delay=10", "--"};
    arguments.insert(arguments.end(), process.begin(), process.end());
    return arguments;
}

Arguments release_supervision(const std::string& name_switch)
{
    return {DAEMON, "--noconfig", name_switch, "--stop"};
}
