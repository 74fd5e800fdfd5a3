// What the end-to-end tests share. They run inside the sandbox, type command lines as a user would, and
// look at files, processes and sockets.
#pragma once

#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <sys/types.h>
#include <vector>

#include "listening_socket.hpp"

// What a command line did. A process that a signal ended has the status 128 and the signal's number.
struct Outcome {
    int status = 0;
    std::string out = {};
    std::string err = {};
};

// Runs a command line of the shell, with the tools on its path, to its end.
Outcome sh(const std::string& command_line);

// The standard output of a command line that must succeed and be silent on standard error.
std::string output_of(const std::string& command_line);

// Command lines, and what they must do: if nothing is said, succeed silently.
struct Expected {
    std::string command_line;
    int status = 0;
    std::string out = {};
    std::string err = {};
};
void expect_all(const std::vector<Expected>& rows);

// Command lines that must all do the same.
void expect_each(const std::vector<std::string>& command_lines, const Outcome& outcome);

// Skips the test where the machine refuses what it needs.
#define SKIP_UNLESS(condition)                                                                               \
    if (!(condition))                                                                                        \
    GTEST_SKIP() << "not on this machine: " #condition

// Runs what follows as a user without rights.
inline const std::string AS_NOBODY = "setpriv --reuid=65534 --regid=65534 --clear-groups ";
bool has_other_users();

// Without the right to trace, root does not see what another user's process holds, nor which item it serves.
bool sees_other_users();

// A mount that lasts as long as the object; false where the machine refuses it.
class Mount {
public:
    // `arguments` are those of mount(8) in front of the directory or file.
    Mount(const std::string& arguments, const std::string& where);
    ~Mount();
    Mount(const Mount&) = delete;
    Mount& operator=(const Mount&) = delete;
    explicit operator bool() const { return m_mounted; }

private:
    std::string m_where;
    bool m_mounted;
};

// A command line whose process is held behind the first system call of this name, until it may go on.
class HeldRun {
public:
    static bool is_possible();  // whether processes can be traced here

    HeldRun(const std::string& call, const std::string& command_line);
    std::string end();  // lets it go on to its end: all that it said
};

void write_file(const std::string& path, const std::string& text);
std::string read_file(const std::string& path);  // "" when it can't be read
bool exists(const std::string& path);            // also a link that leads nowhere

// Polls until the condition holds; false when it doesn't within the time.
bool eventually(
    const std::function<bool()>& condition, std::chrono::milliseconds limit = std::chrono::seconds(10));

// The process that "list" shows for the item, 0 when it shows none. The tool is one of the four names.
pid_t pid_of(const std::string& tool, const std::string& item);

// Starts an item and waits until it takes connections. The test fails if it doesn't come up.
void bring_up(const std::string& tool, const std::string& item, const std::string& switches = "");

// That, and asks which process it is.
pid_t start(const std::string& tool, const std::string& item, const std::string& switches = "");

bool is_alive(pid_t pid);

inline const std::string OUTPUTS = "/mnt/main/tv/outputs/";
inline const std::string FILE_A = OUTPUTS + "a";
inline const std::string CHANNELS = "/mnt/main/tv/rendermgr/";
inline const std::string INPUTS = "/mnt/main/tv/inputs/";
inline const std::string ROUTERS = "/mnt/main/tv/routing/";

// The socket entry of the output "main".
inline constexpr char ENTRY[] = "/mnt/main/tv/outputs/.main.metadir/.media.item.active.socket";

// An appliance without items and without running drivers, before and after each test.
class Appliance : public testing::Test {
protected:
    void SetUp() override { clear(); }
    void TearDown() override { clear(); }

private:
    static void clear();
};
