#include "zelmctl/check/driver/trial.hpp"

#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "control/processes/held_process.hpp"
#include "platform/packet.hpp"
#include "platform/time.hpp"
#include "zelmctl/check/driver/custody.hpp"
#include "zelmctl/check/driver/limits.hpp"

namespace {

constexpr useconds_t START_INTERVAL_US = 2000;
constexpr std::uint64_t DEATH_IS_SEEN_US = 1'000'000;  // behind the end of its connections
constexpr std::uint64_t GENTLE_END_US = 2'000'000;
constexpr std::size_t LONG_NAME = 120;  // no socket address has room for its metadir

}  // namespace

std::uint64_t from_now(std::uint64_t limit_us)
{
    return monotonic_clock_us() + limit_us;
}

std::vector<ReportedEntry> entries_of(const PacketBytes& reply)
{
    const packet::Reader reader(reply);
    std::vector<ReportedEntry> entries;
    for (std::size_t i = 0; i < reader.arguments(); ++i)
        if (const auto [in_table, name, value] = reader.argument(i); name && value)
            entries.push_back({name, value});
    return entries;
}

MadeUpItem Trial::make(const std::string& name, const std::string& settings)
{
    MadeUpItem item;
    make_item(m_directory + "/" + std::to_string(++m_items), *m_program.role, name, settings, item);
    return item;
}

std::unique_ptr<DriverUnderTest> Trial::start_at(const MadeUpItem& item)
{
    return std::make_unique<DriverUnderTest>(m_program.command, item);
}

std::unique_ptr<DriverUnderTest> Trial::start(const std::string& name, const std::string& settings)
{
    return start_at(make(name, settings));
}

// For a second they are only looked at: one is to run on by itself, and one to wait for a lock.
void Trial::start_all()
{
    if (m_were_started)
        return;
    m_were_started = true;
    m_driver = start("check", m_program.settings);
    if (m_driver->error() != 0)
        return;
    const MadeUpItem locked = make("check", m_program.settings);
    mkdir_p(locked.metadir.c_str(), 0755, -1);
    m_lock.reset(::open(locked.metadir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    lock_exclusively(m_lock.get());
    m_locked = start_at(locked);
    m_long_named = start(std::string(LONG_NAME, 'n'), m_program.settings);
    m_bare = start("check", m_program.bare_settings);
    const std::uint64_t looked_at = from_now(LEAST_LOCK_WAIT_US);
    while (monotonic_clock_us() < looked_at) {
        for (DriverUnderTest* each : {m_driver.get(), m_locked.get()})
            each->look();
        ::usleep(START_INTERVAL_US);
    }
}

Trial::~Trial()
{
    let_go_of_others();
}

// The one with the long name has a file elsewhere, which it alone knows to remove.
void Trial::let_go_of_others()
{
    if (m_long_named && m_long_named->is_up() && HeldProcess(m_long_named->pid()).signal(SIGTERM) == 0)
        m_long_named->ended_by(from_now(GENTLE_END_US));
    m_locked.reset();
    m_long_named.reset();
    m_bare.reset();
    m_lock.reset();
}

DriverUnderTest& Trial::driver()
{
    start_all();
    if (!m_driver || m_driver->ended()) {
        do_away();
        if (!m_locked)
            end_children();
        m_driver = start("check", m_program.settings);
        m_driver->comes_up();
    }
    return *m_driver;
}

void Trial::do_away()
{
    m_driver.reset();
}

Heard Trial::ask(std::string_view command, const std::vector<std::string>& arguments)
{
    return driver().first_client().ask(command, arguments, from_now(ANSWER_LIMIT_US));
}

const Heard& Trial::first_report()
{
    if (!m_first_report)
        m_first_report = ask("report");
    return *m_first_report;
}

std::vector<ReportedEntry> Trial::first_entries()
{
    return entries_of(first_report().packet);
}

std::string Trial::still_serves(const std::string& after)
{
    DriverClient client;
    const std::uint64_t deadline = from_now(ANSWER_LIMIT_US);
    if (client.connect_by(m_driver->item().entry, deadline) && client.ask("report", {}, deadline).is_answer())
        return {};
    const std::string end = what_became();
    return after + " " + (end.empty() ? "it answers nobody else" : end);
}

std::string Trial::what_became()
{
    const auto ending = m_driver->ended_by(from_now(DEATH_IS_SEEN_US));
    return ending ? "it " + told_ending(*ending) : std::string();
}
