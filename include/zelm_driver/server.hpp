// The server side of an item: what a driver says when it is asked. zelm-packets(5) tells what goes over the
// socket; nobody who uses this needs to know. No function here is to be called by two threads at a time.
#pragma once

#include <memory>
#include <string>

namespace zelm_driver {

// The lines of an item's status, shown by listings in the order in which they are added. A key that is added
// again is a value of several lines, and one that the settings file has too replaces it in listings. Keys and
// values hold no line feed and end at their first NUL. False: more than 65535 lines do not fit.
class Report {
public:
    virtual bool status(const std::string& key, const std::string& value) = 0;        // marked with "*"
    virtual bool other_status(const std::string& key, const std::string& value) = 0;  // marked with "&"

protected:
    ~Report() = default;
};

// A running item: what the driver's author writes. Both are called from within answer() or serve(), and let
// the client wait until they return: 15 seconds for a report and 30 for a set at most.
class Item {
public:
    virtual ~Item() = default;

    // Says how the item is.
    virtual void report(Report& to) = 0;

    // Changes one setting at once; an empty value removes it. A key that begins with "+", "-" or "&" is a
    // command. The key is never empty. The settings file is rewritten by whoever sends this.
    virtual void set(const std::string& key, const std::string& value) = 0;
};

// The clients of one item, for drivers with a loop of their own.
class Server {
public:
    Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;
    ~Server();  // from here on the item doesn't run

    // Makes the item's metadir where it is missing and listens there: from here on the item runs. Called
    // once. False with errno set, which is EADDRINUSE if another driver serves the item.
    bool open(const std::string& settings_path);

    // A descriptor to wait for: while it is readable, answer() has something to do.
    int descriptor() const;

    // Accepts and answers what is there, and waits for nobody: a client that doesn't fetch its replies is
    // hung up on, and so is the one that has been silent longest where more than 256 are connected, or more
    // than the process may have open.
    void answer(Item& item);

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

// Serves the item until SIGTERM or SIGINT comes; both are blocked in the calling thread from here on, so that
// none is lost on the way in or out. False with errno set if it can't be served, as Server::open() has it.
bool serve(const std::string& settings_path, Item& item);

}  // namespace zelm_driver
