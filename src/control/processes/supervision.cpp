#include "control/processes/supervision.hpp"

#include <cstdlib>
#include <utility>

#include "control/processes/process_status.hpp"

namespace {

constexpr char DAEMON[] = "/usr/bin/daemon";

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

// The process, if it is the manager's under that name; else none.
HeldProcess hold_supervisor(pid_t process, const std::string& name_switch)
{
    if (process <= 0)
        return {};
    std::string command_line;
    for (const std::string& argument : supervise(name_switch, {}))
        command_line += argument + '\0';
    HeldProcess held(process);
    const std::string path = "/proc/" + std::to_string(process) + "/cmdline";
    return read_start(path, command_line.size()) == command_line ? std::move(held) : HeldProcess();
}

}  // namespace

std::string driver_name_switch(const Role& role, const std::string& item)
{
    return std::string("--name=tavorn.") + role.word + "." + safe_name(item);
}

std::string watchdog_name_switch(const Role& role, const std::string& item)
{
    return std::string("--name=tavorn.watchdog.") + role.word + "." + safe_name(item);
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

Supervisors supervisors_of(const Role& role, const std::string& item, pid_t driver)
{
    Supervisors supervisors;
    supervisors.driver = hold_supervisor(parent_of(driver), driver_name_switch(role, item));
    if (!supervisors.driver)
        return supervisors;
    const Directory proc(::opendir("/proc"));
    while (const dirent* entry = proc && !supervisors.watchdog ? ::readdir(proc.get()) : nullptr)
        supervisors.watchdog = hold_supervisor(std::atoi(entry->d_name), watchdog_name_switch(role, item));
    return supervisors;
}
