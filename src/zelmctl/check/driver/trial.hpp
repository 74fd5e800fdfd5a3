// What the rules are held against: a driver that runs, and others of the same program that have been started
// under special conditions.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/mediaitem.hpp"
#include "zelmctl/check/driver/driver_under_test.hpp"

struct DriverProgram {
    Arguments command;          // in front of "--file"
    const Role* role;           // of its items
    std::string settings;       // what an item's file holds
    std::string bare_settings;  // the same while nothing is set
    std::optional<zelm_config_list> manifest;
};

struct ReportedEntry {
    std::string name;  // with its letter
    std::string value;
};

class Trial {
public:
    // Below that directory, which nobody else uses.
    Trial(const DriverProgram& program, const std::string& directory)
        : m_program(program), m_directory(directory)
    {
    }

    Trial(const Trial&) = delete;
    Trial& operator=(const Trial&) = delete;
    ~Trial();

    const DriverProgram& program() const { return m_program; }

    // All are started as soon as one is asked for, since most of what they do is to wait.
    DriverUnderTest& plain() { return start_all(), *m_driver; }
    DriverUnderTest& locked() { return start_all(), *m_locked; }  // the metadir is locked by somebody else
    DriverUnderTest& long_named() { return start_all(), *m_long_named; }
    DriverUnderTest& bare() { return start_all(), *m_bare; }  // nothing is set
    void let_go_of_others();                                  // all but the plain one are ended

    // One that runs: the plain one, or another in its place if that was done away with.
    DriverUnderTest& driver();
    void do_away();

    // One for an item of its own, and one for the same item as another.
    std::unique_ptr<DriverUnderTest> start(const std::string& name, const std::string& settings);
    std::unique_ptr<DriverUnderTest> start_at(const MadeUpItem& item);

    // Has the driver's first client ask.
    Heard ask(std::string_view command, const std::vector<std::string>& arguments = {});

    // What it heard when it asked for a report for the first time. The entries are to be had once the layout
    // is known to be right.
    const Heard& first_report();
    std::vector<ReportedEntry> first_entries();

    // Whether a new client is answered, whatever the driver has been through: empty, or that and what became
    // of it.
    std::string still_serves(const std::string& after);

    // How the driver ended, which it may just be about to; empty if it didn't.
    std::string what_became();

private:
    void start_all();
    MadeUpItem make(const std::string& name, const std::string& settings);

    const DriverProgram& m_program;
    std::string m_directory;
    int m_items = 0;
    std::unique_ptr<DriverUnderTest> m_driver, m_locked, m_long_named, m_bare;
    Descriptor m_lock;
    bool m_were_started = false;
    std::optional<Heard> m_first_report;
};

// Entries of a reply whose layout is right.
std::vector<ReportedEntry> entries_of(const PacketBytes& reply);

// When something that begins now has to be done.
std::uint64_t from_now(std::uint64_t limit_us);
