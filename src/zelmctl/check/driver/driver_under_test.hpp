// A driver that is started for a made-up item, as the tools would start it, and what becomes of its process.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <sys/types.h>

#include "control/items/role.hpp"
#include "control/processes/child_process.hpp"
#include "zelmctl/check/driver/driver_client.hpp"

constexpr mode_t UMASK = 022;  // with which a driver is started

struct MadeUpItem {
    std::string settings_file;
    std::string metadir;  // not made: the driver does that
    std::string entry;    // where its socket has to be
};

// Makes the item in a directory of its own, called as that of the role is, below the one that is given. The
// settings are those of its file. False with errno set.
bool make_item(const std::string& directory, const Role& role, const std::string& name,
    const std::string& settings, MadeUpItem& item);

class DriverUnderTest {
public:
    // Starts the program; what it prints goes nowhere.
    DriverUnderTest(const Arguments& command, const MadeUpItem& item);
    DriverUnderTest(const DriverUnderTest&) = delete;
    DriverUnderTest& operator=(const DriverUnderTest&) = delete;
    ~DriverUnderTest();  // kills it, and all of its session

    const MadeUpItem& item() const { return m_item; }
    pid_t pid() const { return m_pid; }
    int error() const { return m_error; }  // why the program couldn't be executed; 0 if it could

    // Looks whether it is up, which is when its entry doesn't refuse a client any more. That one stays
    // connected, the first and silent, if the driver let it.
    void look();
    bool is_up() const { return m_up_us != 0; }
    bool is_settled() const { return is_up() || ended().has_value(); }  // one way or the other
    bool comes_up();                                                    // waits as long as it may take
    std::uint64_t started_us() const { return m_started_us; }
    std::uint64_t up_us() const { return m_up_us; }
    DriverClient& first_client() { return m_first; }

    // How its process ended, as of waitpid(2), by itself or by what was done to it. None while it runs.
    std::optional<int> ended() const;
    std::optional<int> ended_by(std::uint64_t deadline_us) const;

    // What the tools find: the process that serves the item; 0 for none.
    pid_t served_by() const;

    void kill() const;

private:
    [[noreturn]] void run(const Arguments& command, int errors) const;

    MadeUpItem m_item;
    std::uint64_t m_started_us = 0;
    std::uint64_t m_up_us = 0;
    pid_t m_pid = -1;
    int m_error = 0;
    mutable std::optional<int> m_ending{};
    DriverClient m_first;
};

// "ended with status 1" or "was ended by signal 9".
std::string told_ending(int ending);
