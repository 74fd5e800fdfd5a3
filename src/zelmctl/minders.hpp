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

    // An item, and the number by which it is told of.
    struct Task {
        std::size_t number;
        std::string item;
    };

    // Each has its command done: a start returns at once, and a stop takes its time. The minders end with
    // this process at the latest. False when a fork failed.
    bool start(const std::vector<Task>& tasks) const;
    bool stop(const Task& task) const;

    int descriptor() const { return m_reports.get(); }

    // What has come, without waiting.
    std::vector<MinderReport> read() const;

private:
    Descriptor m_reports;
    Descriptor m_minders_end;
};
