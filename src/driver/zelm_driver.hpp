// A driver's side of its item's socket, for whoever writes one: it listens where the tools look, and answers
// what they ask. zelm-packets(5) tells what lies beneath.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace zelm {

// The entries of a report in their order: a key behind its type letter ("*title"), and its text. Texts end at
// their first NUL. A key that occurs several times has a value of several lines.
using Report = std::vector<std::pair<std::string, std::string>>;

class DriverServer {
public:
    // What the driver says of itself now.
    using AnswerReport = std::function<Report()>;

    // A setting that changes at once: the key is never empty, and an empty value removes it. A key that
    // begins with "+", "-" or "&" is a command and no setting. The settings file is not the driver's to
    // change.
    using TakeSet = std::function<void(const std::string& key, const std::string& value)>;

    DriverServer(AnswerReport, TakeSet);
    ~DriverServer();  // removes the socket, so that the item counts as stopped

    // Listens for the item of the settings file, and makes its metadir if need be. From then on SIGTERM and
    // SIGINT are blocked, also in threads that the caller starts later. False with errno set; EADDRINUSE when
    // another driver serves the item, which is left to it.
    bool listen(const std::string& settings_path);

    // Answers, by calling the two functions on this thread, until SIGTERM or SIGINT comes. False with errno
    // set when that can't be waited for. Only after listen().
    bool serve();

private:
    struct Connections;
    std::unique_ptr<Connections> m_connections;
};

}  // namespace zelm
