#include <algorithm>
#include <csignal>
#include <dirent.h>
#include <unistd.h>

#include "control/processes/process_status.hpp"
#include "platform/packet.hpp"
#include "platform/packet_faults.hpp"
#include "platform/time.hpp"
#include "zelmctl/check/driver/faults.hpp"
#include "zelmctl/check/driver/limits.hpp"

namespace {

constexpr std::size_t SILENT_CLIENTS = 5;
constexpr std::size_t HASTY_CLIENTS = 20;
constexpr std::size_t TALKS_EACH = 5;  // of the silent ones
constexpr std::size_t LEAVING_CLIENTS = 100;
constexpr std::size_t DESCRIPTORS_TO_SPARE = 10;
constexpr std::size_t LONG_BYTES = 100'000;  // what every kernel takes
constexpr std::size_t FLOOD_REQUESTS = 5000;
constexpr std::size_t FLOOD_BYTES = std::size_t{64} << 20;  // of replies, which it may keep
constexpr std::uint64_t FLOOD_PAUSE_US = 50'000;
constexpr std::size_t REPORTS_AT_ONCE = 8;
constexpr std::size_t FIRST_REPORTS = 1000;  // after which it has what it needs
constexpr std::uint64_t REPORTS_LIMIT_US = 4'000'000;
constexpr useconds_t RELEASE_INTERVAL_US = 5000;
constexpr std::size_t STATM_SIZE = 128;

const std::string& entry_of(Trial& trial)
{
    return trial.driver().item().entry;
}

// Each packet comes from a client of its own, which stays until another has been served.
std::string after_packets(Trial& trial, const std::vector<PacketBytes>& packets, const std::string& after)
{
    for (const PacketBytes& packet : packets) {
        DriverClient client;
        client.connect_by(entry_of(trial), from_now(ANSWER_LIMIT_US));
        client.send(packet);
        if (const std::string fault = trial.still_serves(after); !fault.empty())
            return fault + "; any client can do that";
    }
    return {};
}

std::vector<DriverClient> connect_many(Trial& trial, std::size_t count)
{
    const std::uint64_t limit = from_now(ANSWER_LIMIT_US);
    std::vector<DriverClient> clients(count);
    for (DriverClient& client : clients)
        if (!client.connect_by(entry_of(trial), limit))
            break;
    return clients;
}

std::size_t open_descriptors(pid_t process)
{
    const Directory directory(::opendir(("/proc/" + std::to_string(process) + "/fd").c_str()));
    std::size_t count = 0;
    while (directory && ::readdir(directory.get()))
        ++count;
    return count;
}

// What is in memory of the process, in bytes.
std::size_t resident(pid_t process)
{
    const auto pages = read_start("/proc/" + std::to_string(process) + "/statm", STATM_SIZE).value_or("0 0");
    return std::strtoul(pages.c_str() + pages.find(' '), nullptr, 10) *
           static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
}

// As many reports as that, or as fit the time. False when one isn't answered.
bool ask_reports(std::vector<DriverClient>& clients, std::size_t count)
{
    const std::uint64_t enough = from_now(REPORTS_LIMIT_US);
    for (std::size_t asked = 0; asked < count && monotonic_clock_us() < enough; asked += clients.size()) {
        const std::uint64_t limit = from_now(ANSWER_LIMIT_US);
        for (DriverClient& client : clients)
            if (!client.send_request("report", {}, limit))
                return false;
        for (DriverClient& client : clients)
            if (!client.listen(limit).is_answer())
                return false;
    }
    return true;
}

}  // namespace

std::string faults::silent(Trial& trial)
{
    const std::vector<DriverClient> clients = connect_many(trial, SILENT_CLIENTS);
    const std::string fault = trial.still_serves("beside clients that say nothing");
    return fault.empty() ? "" : fault + "; one that hangs makes the item hang";
}

std::string faults::short_packet(Trial& trial)
{
    return after_packets(
        trial, {PacketBytes(1, 'x'), PacketBytes(packet::HEADER_SIZE - 1, 'x')}, "after a short packet");
}

std::string faults::split(Trial& trial)
{
    const PacketBytes whole = request("report", {}, 1);
    const auto middle = whole.begin() + static_cast<std::ptrdiff_t>(whole.size() / 2);
    return after_packets(trial, {PacketBytes(whole.begin(), middle), PacketBytes(middle, whole.end())},
        "after half a request");
}

std::string faults::long_packet(Trial& trial)
{
    return after_packets(trial, {packet::overlong_request(LONG_BYTES)}, "after a long packet");
}

std::string faults::garbled(Trial& trial)
{
    return after_packets(trial, packet::garbled_requests(), "after a garbled request");
}

std::string faults::flood(Trial& trial)
{
    DriverClient client;
    client.connect_by(entry_of(trial), from_now(ANSWER_LIMIT_US));
    const PacketBytes bytes = request("report", {}, 1);
    const std::size_t count = std::min(FLOOD_REQUESTS, FLOOD_BYTES / trial.first_report().packet.size());
    for (std::size_t i = 0; i < count; ++i)
        if (!client.send_by(bytes, from_now(FLOOD_PAUSE_US)))
            break;
    const std::string fault = trial.still_serves("beside a client that asks and doesn't read");
    return fault.empty() ? "" : fault + "; any client can do that";
}

std::string faults::hang_up(Trial& trial)
{
    for (std::size_t i = 0; i < HASTY_CLIENTS; ++i) {
        DriverClient client;
        if (client.connect_by(entry_of(trial), from_now(ANSWER_LIMIT_US)))
            client.send(request("report", {}, 1));
    }
    const std::string fault = trial.still_serves("after clients that hung up before their reply");
    return fault.empty() ? "" : fault + "; a listing that is broken off stops the item";
}

std::string faults::at_once(Trial& trial)
{
    std::vector<DriverClient> clients = connect_many(trial, CLIENTS_AT_ONCE);
    const std::uint64_t limit = from_now(ANSWER_LIMIT_US);
    for (std::size_t i = 0; i < clients.size(); ++i)
        if (i % 2 == 0)
            clients[i].send_request("report", {}, limit);
        else
            clients[i].send_request("set", {"zelmctl check", "1"}, limit);
    const auto answered = std::count_if(clients.begin(), clients.end(),
        [&](DriverClient& client) { return client.listen(limit).is_answer(); });
    if (answered == static_cast<std::ptrdiff_t>(clients.size()))
        return {};
    return "of " + std::to_string(clients.size()) + " clients at once " + std::to_string(answered) +
           " are answered; listings and front ends get in each other's way";
}

std::string faults::crowd(Trial& trial)
{
    const std::vector<DriverClient> clients = connect_many(trial, IDLE_CLIENTS);
    const std::string fault = trial.still_serves("beside " + std::to_string(IDLE_CLIENTS) + " idle clients");
    return fault.empty() ? "" : fault + "; whoever leaks connections shuts all others out";
}

// Each is answered once, so that the driver has heard them in this order; who talks is always among the last.
std::string faults::longest_silent(Trial& trial)
{
    const std::uint64_t limit = from_now(ANSWER_LIMIT_US);
    DriverClient talker;
    bool is_served = talker.connect_by(entry_of(trial), limit);
    std::vector<DriverClient> silent(IDLE_CLIENTS);
    for (std::size_t i = 0; i < silent.size() && is_served; ++i) {
        if (silent[i].connect_by(entry_of(trial), limit))
            silent[i].ask("report", {}, limit);
        is_served = i % TALKS_EACH != 0 || talker.ask("report", {}, limit).is_answer();
    }
    return is_served ? "" : "among idle clients one that talks is let go; it takes the item for stopped";
}

std::string faults::gone_clients(Trial& trial)
{
    const pid_t process = trial.driver().served_by();
    const std::size_t before = open_descriptors(process);
    for (std::size_t i = 0; i < LEAVING_CLIENTS; ++i) {
        DriverClient client;
        if (client.connect_by(entry_of(trial), from_now(ANSWER_LIMIT_US)))
            client.ask("report", {}, from_now(ANSWER_LIMIT_US));
    }
    const std::uint64_t limit = from_now(ANSWER_LIMIT_US);
    while (open_descriptors(process) > before + DESCRIPTORS_TO_SPARE) {
        if (monotonic_clock_us() >= limit)
            return "it keeps the connections of clients that have gone; one day it has no descriptor left";
        ::usleep(RELEASE_INTERVAL_US);
    }
    return {};
}

std::string faults::growth(Trial& trial)
{
    const pid_t process = trial.driver().served_by();
    std::vector<DriverClient> clients = connect_many(trial, REPORTS_AT_ONCE);
    const bool was_answered = ask_reports(clients, FIRST_REPORTS);
    const std::size_t before = resident(process);
    if (!was_answered || !ask_reports(clients, REPORTS))
        return "of " + std::to_string(REPORTS) + " reports one isn't answered";
    const std::size_t now = resident(process);
    return now <= before + GROWTH_LIMIT
               ? ""
               : "it grows by more than " + std::to_string(GROWTH_LIMIT >> 20) + " MiB over " +
                     std::to_string(REPORTS) + " reports; one day it has no memory left";
}
