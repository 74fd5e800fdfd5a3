// Processes that have a command of the four tools done, one for each item: the state of a run is a whole
// process's, and the parent of a driver learns how it ends.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/io.hpp"

// What a minder tells.
struct MinderReport {
    enum class What : std::uint8_t {
        DONE,   // the command has returned, with this result
        ENDED,  // the process that it started has ended, with this status as of waitpid(2)
    };
    std::size_t item;  // the number that it was forked with
    What what;
    int value;
    std::string said;  // by the command so far
};

class Minders {
public:
    Minders();

    using Command = int (*)(const std::string& item);

    // Has the command done for the item. The minder ends with this process at the latest. False when the fork
    // failed.
    bool fork(std::size_t number, const std::string& item, Command command) const;

    int descriptor() const { return m_reports.get(); }

    // What has come, without waiting.
    std::vector<MinderReport> read() const;

private:
    Descriptor m_reports;
    Descriptor m_minders_end;
};
