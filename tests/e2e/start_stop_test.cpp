// Starting, stopping and restarting drivers: what a started process was given, what the respawn manager is
// told, and when the tool comes back.
#include <algorithm>
#include <csignal>
#include <filesystem>
#include <iterator>
#include <map>
#include <sstream>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include "e2e/sandbox_testing.hpp"

namespace fs = std::filesystem;

namespace {

using Clock = std::chrono::steady_clock;
using Facts = std::map<std::string, std::string>;

// What a driver has written down about itself, once it has.
Facts witness(const std::string& path = "/run/witness")
{
    EXPECT_TRUE(eventually([&] { return exists(path); })) << path;
    Facts facts;
    const std::string text = read_file(path);
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find('\n', at);
        const std::size_t equals = text.find('=', at);
        facts[text.substr(at, equals - at)] = text.substr(equals + 1, end - equals - 1);
        at = end + 1;
    }
    return facts;
}

std::string facts_of(const Facts& facts, const std::string& prefix)
{
    std::string text;
    for (const auto& [name, value] : facts)
        if (name.starts_with(prefix))
            text.append(name).append("=").append(value).append("\n");
    return text;
}

// The standard descriptors of a driver, and nothing else.
std::string descriptors(const std::string& output = "/dev/null")
{
    return "fd 0=/dev/null\nfd 1=" + output + "\nfd 2=" + output + "\n";
}

// The argument vectors of all processes that have the word in them, sorted, as "argument|argument|".
std::vector<std::string> vectors_with(const std::string& word)
{
    std::vector<std::string> vectors;
    for (const fs::directory_entry& process : fs::directory_iterator("/proc")) {
        std::string vector = read_file(process.path() / "cmdline");
        std::replace(vector.begin(), vector.end(), '\0', '|');
        if (process.path() != "/proc/self" && process.path() != "/proc/thread-self" &&
            vector.find(word) != std::string::npos)
            vectors.push_back(vector);
    }
    std::sort(vectors.begin(), vectors.end());
    return vectors;
}

double seconds_since(Clock::time_point begin)
{
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

// A script in the place of /usr/bin/daemon, which writes down each call and does nothing.
class LoggedDaemon {
public:
    LoggedDaemon()
    {
        write_file("/run/daemon", R"sh(#!/bin/sh
leader=; [ "$(cut -d' ' -f6 /proc/$$/stat)" = $$ ] && leader=' leads'
line=$(printf '%s|' "$@")
echo "$line$(id -u)$leader $(readlink /proc/$$/fd/0 /proc/$$/fd/1 /proc/$$/fd/2 /proc/$$/fd/7 | tr '\n' ' ')" >>/run/calls
)sh");
        output_of("chmod 755 /run/daemon; mount --bind /run/daemon /usr/bin/daemon");
    }
    ~LoggedDaemon() { sh("umount /usr/bin/daemon"); }
    LoggedDaemon(const LoggedDaemon&) = delete;
    LoggedDaemon& operator=(const LoggedDaemon&) = delete;

    // The calls since the last time, sorted; waits for so many.
    static std::string calls(std::ptrdiff_t count)
    {
        const auto is_whole = [&] {
            const std::string text = read_file("/run/calls");
            return std::count(text.begin(), text.end(), '\n') >= count;
        };
        EXPECT_TRUE(eventually(is_whole));
        std::string sorted = sh("sort /run/calls").out;
        fs::remove("/run/calls");
        return sorted;
    }

    // What the calls of a start and of a stop are to be: nothing but the driver's gets a session of its own.
    static std::string start_calls(
        const std::string& name, const std::string& program, const std::string& path)
    {
        return call(name, "--respawn|--delay=10|--|/usr/bin/" + program + "|--file|" + path + "|", " leads") +
               call("watchdog." + name, "--respawn|--delay=10|--|tavorn-comm-watchdog|" + path + "|");
    }
    static std::string stop_calls(const std::string& name)
    {
        return call(name, "--stop|") + call("watchdog." + name, "--stop|");
    }

    // Only the sandbox's own /usr/bin may be covered, never the machine's.
    static bool is_possible()
    {
        return read_file("/proc/self/mountinfo").find(" /usr/bin ") != std::string::npos;
    }

private:
    static std::string call(const std::string& name, const std::string& rest, const char* leads = "")
    {
        return "--noconfig|--name=tavorn." + name + "|" + rest + std::to_string(::getuid()) + leads +
               " /dev/null /dev/null /dev/null \n";
    }
};

class StartStop : public Appliance {
protected:
    // The items of a tool that run, in the order of the listing.
    static std::string running(const std::string& tool = "zelm_outctl")
    {
        return sh(
            tool +
            " -c list --no-manifest --timeout -1 | "
            "awk '/^[^\\t}]/ {name = $0} /\\trunning=1/ {printf \"%s \", substr(name, 1, length(name) - 1)}'")
            .out;
    }

    static bool run_eventually(const std::string& items, const std::string& tool = "zelm_outctl")
    {
        return eventually([&] { return running(tool) == items; });
    }
};

TEST_F(StartStop, ADriverIsGivenItsFileAndNothingElseButADebugFileIfAsked)
{
    const struct {
        std::string tool;
        std::string path;
        const char* settings;
        std::string program;
        std::string debug;
    } rows[] = {
        {"zelm_outctl", OUTPUTS + "studio a", "driver=x11\n", "/usr/bin/zelm_out_x11", "output.x11.studio a"},
        {"zelm_chctl", CHANNELS + "channel7", "driver=x11\n", "/usr/bin/zelm_rendermgr", "channel7"},
        {"zelm_inctl", INPUTS + "in", "#! Video-Passthru-V2\n", "/usr/bin/zelm_video_passthru_v2",
            "input.video_passthru_v2.in"},
        {"zelm_routectl", ROUTERS + "r1", "driver=knox_rsii\n", "/usr/bin/zelm_knox_rsii",
            "input.knox_rsii.r1"},
    };
    write_file("/run/other", "");
    for (const auto& row : rows) {
        fs::remove("/run/witness");
        write_file(row.path, std::string(row.settings) + "sim witness=/run/witness\n");
        const std::string item = " -o '" + fs::path(row.path).filename().string() + "' ";
        // A caller with open files, and with all signals ignored and blocked.
        output_of("env --ignore-signal --block-signal " + row.tool + " -c start" + item +
                  "3</run/other 7>>/run/other");
        Facts facts = witness();
        EXPECT_EQ(facts_of(facts, "argv"),
            "argv[0]=" + row.program + "\nargv[1]=--file\nargv[2]=" + row.path + "\n");
        EXPECT_EQ(facts_of(facts, "fd "), descriptors()) << row.program;
        EXPECT_EQ(facts.at("session"), facts.at("pid")) << row.program;
        // Two of the signals belong to the C library.
        EXPECT_EQ(std::stoull(facts.at("SigIgn"), nullptr, 16) & ~0x180000000ULL, 0U) << facts.at("SigIgn");
        EXPECT_EQ(std::stoull(facts.at("SigBlk"), nullptr, 16), 0U) << facts.at("SigBlk");

        const std::string debug = "/mnt/main/tv/debug/" + row.debug;
        std::string text = row.program + ": serving " + row.path + "\n";
        for (int run = 0; run < 2; ++run) {
            ASSERT_TRUE(eventually([&] { return sh(row.tool + " -c status" + item).status == 0; }));
            fs::remove("/run/witness");
            output_of(row.tool + " -c restart --debug" + item);
            EXPECT_EQ(facts_of(witness(), "fd "), descriptors(debug));
            EXPECT_TRUE(eventually([&] { return read_file(debug) == text; }))
                << "a run adds to " << read_file(debug);
            text += row.program + ": ending\n" + text;
        }
        EXPECT_EQ(fs::status(debug).permissions(), fs::perms(0644)) << debug;
    }
    EXPECT_EQ(fs::status("/mnt/main/tv/debug").permissions(), fs::perms(0755));
}

TEST_F(StartStop, ADriverRunsWithoutADebugFileThatCannotBeOpened)
{
    write_file(OUTPUTS + "main", "driver=x11\nsim witness=/run/witness\n");
    fs::create_directories("/mnt/main/tv/debug/output.x11.main");
    sh("zelm_outctl -c start --debug -o main");
    EXPECT_EQ(facts_of(witness(), "fd "), descriptors());
}

TEST_F(StartStop, TheOwnerOfTheFileDecidesUnderWhomADriverRuns)
{
    if (!has_other_users())
        GTEST_SKIP() << "there are no other users here";
    write_file(OUTPUTS + "main", "driver=x11\nsim witness=/run/w/witness\n");
    output_of("mkdir -m 1777 /run/w; mkdir /mnt/main/tv/outputs/.main.metadir; cd /mnt/main/tv/outputs; "
              "chown 1234:2345 main .main.metadir");
    output_of("setpriv --groups=4,24 zelm_outctl -c start -o main");
    const Facts facts = witness("/run/w/witness");
    EXPECT_EQ(facts_of(facts, "uid") + facts_of(facts, "euid"), "uid=1234\neuid=1234\n");
    EXPECT_EQ(facts_of(facts, "gid") + facts_of(facts, "egid"), "gid=2345\negid=2345\n");
    EXPECT_EQ(facts.at("groups"), "");

    // A caller that may not end it says so, and one that may does.
    ASSERT_TRUE(run_eventually("main "));
    const std::string stop = "zelm_outctl -c stop --stop-only -o main";
    expect_all({
        {"setpriv --bounding-set=-kill --inh-caps=-kill " + stop, 0, "",
            "Driver not running x11, Operation not permitted\n"},
        {stop, 0, "", ""},
    });
    EXPECT_EQ(running(), "");
}

TEST_F(StartStop, TheManagerIsToldTheSameNamesAtStartAndStop)
{
    if (!LoggedDaemon::is_possible())
        GTEST_SKIP() << "/usr/bin is not the sandbox's own";
    const LoggedDaemon daemon;
    const struct {
        std::string tool;
        std::string path;
        const char* settings;
        const char* switches;
        const char* name;
        const char* program;
    } rows[] = {
        {"zelm_outctl", OUTPUTS + "studio a", "driver=x11\nautorestart=1\n", "", "output.studio__a",
            "zelm_out_x11"},
        {"zelm_outctl", OUTPUTS + "\tb\n", "driver=oss\n", "--use-daemon", "output.__b__", "zelm_out_oss"},
        {"zelm_chctl", CHANNELS + "channel1", "autorestart=0\nautorestart=2\n", "", "channel.channel1",
            "zelm_rendermgr"},
        {"zelm_inctl", INPUTS + "\xc3\xa4", "#!video-passthru\n", "--use-daemon", "input.\xc3\xa4",
            "zelm_video_passthru"},
        {"zelm_routectl", ROUTERS + "r", "driver=knox_rsii\nautorestart=1\n", "", "router.r",
            "zelm_knox_rsii"},
    };
    for (const auto& row : rows) {
        write_file(row.path, row.settings);
        const std::string item = " -o '" + fs::path(row.path).filename().string() + "' 7>>/run/other ";
        // A path with a line feed gives a call of two lines.
        const std::ptrdiff_t lines = 2 + 2 * std::count(row.path.begin(), row.path.end(), '\n');
        output_of(row.tool + " -c start" + item + row.switches);
        write_file("/run/expected", LoggedDaemon::start_calls(row.name, row.program, row.path));
        EXPECT_EQ(LoggedDaemon::calls(lines), sh("sort /run/expected").out);
        // A stop of what doesn't run lets go of both nevertheless.
        output_of(row.tool + " -c stop" + item);
        EXPECT_EQ(LoggedDaemon::calls(2), LoggedDaemon::stop_calls(row.name));
    }
    for (const std::string command : {"stop --stop-only", "stop --x11conflict 1", "start --x11conflict 0"})
        output_of("zelm_outctl -o 'studio a' -c " + command);
    EXPECT_FALSE(eventually([] { return exists("/run/calls"); }, std::chrono::milliseconds(200)))
        << read_file("/run/calls");
}

TEST_F(StartStop, TheManagerBringsADriverBackUntilItIsStopped)
{
    write_file(OUTPUTS + "studio a", "driver=x11\nautorestart=1\n");
    const auto comes_back_after = [](pid_t old) {
        pid_t pid = 0;
        eventually([&] { return (pid = pid_of("zelm_outctl", "studio a")) != 0 && pid != old; },
            std::chrono::seconds(15));
        return pid != old ? pid : 0;
    };
    pid_t pid = start("zelm_outctl", "studio a");
    const std::string supervised = "/usr/bin/daemon|--noconfig|--name=tavorn.";
    const std::string rest = "|--respawn|--delay=10|--|";
    EXPECT_TRUE(eventually([&] {
        return vectors_with("/mnt/main/tv/outputs/studio a") ==
               std::vector<std::string>{supervised + "output.studio__a" + rest +
                                            "/usr/bin/zelm_out_x11|--file|/mnt/main/tv/outputs/studio a|",
                   supervised + "watchdog.output.studio__a" + rest +
                       "tavorn-comm-watchdog|/mnt/main/tv/outputs/studio a|",
                   "tavorn.output.studio__a: /usr/bin/zelm_out_x11|--file|/mnt/main/tv/outputs/studio a|",
                   "tavorn.watchdog.output.studio__a: tavorn-comm-watchdog|/mnt/main/tv/outputs/studio a|"};
    })) << testing::PrintToString(vectors_with("studio a"));

    ASSERT_EQ(::kill(pid, SIGKILL), 0);
    pid = comes_back_after(pid);
    EXPECT_TRUE(is_alive(pid)) << "it died";
    output_of("zelm_outctl -c stop --stop-only -o 'studio a'");
    EXPECT_FALSE(is_alive(pid));
    pid = comes_back_after(pid);
    EXPECT_TRUE(is_alive(pid)) << "only it was stopped";
    // The manager loses a signal that it is to hand on while it brings a process up.
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    output_of("zelm_outctl -c stop -o 'studio a'");
    EXPECT_TRUE(eventually([] { return vectors_with("/mnt/main/tv/outputs/studio a").empty(); }))
        << testing::PrintToString(vectors_with("studio a"));
    EXPECT_EQ(running(), "");
}

TEST_F(StartStop, OnlyOneSideOfAnX11ConflictIsActedOn)
{
    for (const char* driver : {"x11", "drmkms", "fbdev", "alsa"})
        write_file(OUTPUTS + driver, std::string("driver=") + driver + "\n");
    const struct {
        const char* command;
        const char* value;
        const char* running;
    } rows[] = {
        {"start", "0", "drmkms fbdev "},
        {"start", "1", "drmkms fbdev x11 "},
        {"stop", "0x0", "drmkms fbdev "},
        {"start", "-1", "alsa drmkms fbdev x11 "},
        {"stop", "0x10", "alsa x11 "},
        {"stop", "-5", ""},
        {"start", "2", "x11 "},
    };
    for (const auto& row : rows) {
        const std::string command_line =
            std::string("zelm_outctl --x11conflict ") + row.value + " -o all -c " + row.command;
        output_of(command_line);
        EXPECT_TRUE(run_eventually(row.running)) << command_line << ": " << running();
    }
    write_file(ROUTERS + "r", "driver=knox_rsii\n");
    output_of("zelm_routectl --x11conflict 1 -c start -o all");
    EXPECT_TRUE(run_eventually("r ", "zelm_routectl")) << "only outputs have the conflict";
}

TEST_F(StartStop, PseudoNamesReachTheItemsThatTheyMean)
{
    // The flag is a number, and "4294967297" is 1 in the 32 bits that count.
    for (const char* flag : {"+3", "4294967297", "5x"})
        write_file(OUTPUTS + "a" + flag, std::string("driver=x11\nautostart=") + flag + "\n");
    for (const char* flag : {"", "-1", "0x1", "4294967296", "yes"})
        write_file(OUTPUTS + "b" + flag, std::string("driver=x11\nautostart=") + flag + "\n");
    const std::string with_flag = "a+3 a4294967297 a5x ";
    const std::string without = "b b-1 b0x1 b4294967296 byes ";
    const auto pids = [] {
        std::istringstream lines(
            sh("zelm_outctl -c list --no-manifest --timeout -1 | sed -n 's/.*pid=//p'").out);
        return std::vector<pid_t>(std::istream_iterator<pid_t>(lines), {});
    };
    output_of("zelm_outctl -c start -o autostart");
    EXPECT_TRUE(run_eventually(with_flag)) << running();
    output_of("zelm_outctl -c start -o all");
    EXPECT_TRUE(run_eventually(with_flag + without)) << running();
    const std::vector<pid_t> before = pids();
    output_of("zelm_outctl -c restart -o all");
    EXPECT_TRUE(run_eventually(with_flag + without)) << running();
    const std::vector<pid_t> after = pids();
    ASSERT_EQ(after.size(), before.size());
    std::string changed;
    for (std::size_t i = 0; i < after.size(); ++i)
        changed += after[i] == before[i] ? "-" : "x";
    EXPECT_EQ(changed, "xxx-----") << "a restart of all is one of those with the flag";
    output_of("zelm_outctl -c stop -o autostart");
    EXPECT_EQ(running(), without);
    output_of("zelm_outctl -c stop -o all");
    EXPECT_EQ(running(), "");
}

TEST_F(StartStop, ForceStartsASecondDriver)
{
    write_file(OUTPUTS + "main", "driver=x11\n");
    const pid_t first = start("zelm_outctl", "main");
    output_of("zelm_outctl -c start -o main");
    EXPECT_EQ(vectors_with("/mnt/main/tv/outputs/main").size(), 1U);
    output_of("zelm_outctl -c start -o main --force");
    EXPECT_TRUE(eventually([] { return vectors_with("/mnt/main/tv/outputs/main").size() == 2; }));
    EXPECT_TRUE(is_alive(first));
}

TEST_F(StartStop, ARestartDependsOnWhetherTheSocketIsLeftBehind)
{
    const struct {
        const char* what;
        const char* settings;
        const char* switches;
        bool starts;
    } rows[] = {
        {"it removes its socket", "", "", true},
        {"it leaves its socket", "sim leave socket=1\n", "", false},
        {"the socket doesn't matter", "sim leave socket=1\n", "--force", true},
    };
    for (const auto& row : rows) {
        write_file(OUTPUTS + "main", std::string("driver=x11\n") + row.settings);
        const pid_t old = start("zelm_outctl", "main");
        EXPECT_EQ(output_of(std::string("zelm_outctl -c restart -o main ") + row.switches), "") << row.what;
        EXPECT_FALSE(is_alive(old)) << row.what;
        if (row.starts)
            EXPECT_TRUE(run_eventually("main ")) << row.what;
        else
            EXPECT_TRUE(vectors_with("/mnt/main/tv/outputs/main").empty()) << row.what;
        output_of("zelm_outctl -c stop -o main");
    }
    output_of("zelm_outctl -c restart -o main");
    EXPECT_TRUE(run_eventually("main ")) << "a stopped item is started";
}

TEST_F(StartStop, ADriverThatIgnoresTheSignalIsWaitedForAsLongAsAsked)
{
    write_file(OUTPUTS + "main", "driver=x11\nsim ignore sigterm=1\n");
    const pid_t pid = start("zelm_outctl", "main");
    Clock::time_point begin = Clock::now();
    output_of(
        "for t in 0 -1; do { timeout 1.2 zelm_outctl -c stop -o main --timeout $t; echo $? >>/run/ended; } & done; "
        "zelm_outctl -c stop -o main --timeout 1");
    EXPECT_GE(seconds_since(begin), 1.0);
    EXPECT_LT(seconds_since(begin), 4.0);
    EXPECT_TRUE(eventually([] { return read_file("/run/ended") == "124\n124\n"; }))
        << "without a limit they wait";
    EXPECT_TRUE(is_alive(pid)) << "nothing but the signal was sent";
    begin = Clock::now();
    output_of("zelm_outctl -c stop -o main --timeout 1 --kill-timeout");
    EXPECT_GE(seconds_since(begin), 1.0);
    EXPECT_LT(seconds_since(begin), 4.0);
    EXPECT_TRUE(eventually([&] { return !is_alive(pid); }));
}

TEST_F(StartStop, ACallerWithoutStandardStreamsIsServed)
{
    write_file(OUTPUTS + "main", "driver=x11\nsim witness=/run/witness\n");
    for (const char* closed : {"<&-", ">&-", "2>&-", "<&- >&- 2>&-"}) {
        fs::remove("/run/witness");
        EXPECT_EQ(sh(std::string("zelm_outctl -c start -o main ") + closed).status, 0) << closed;
        EXPECT_EQ(facts_of(witness(), "fd "), descriptors()) << closed;
        EXPECT_TRUE(run_eventually("main ")) << closed;
        EXPECT_EQ(sh(std::string("zelm_outctl -c list ") + closed).status, 0) << closed;
        EXPECT_EQ(sh(std::string("zelm_outctl -c status -o no ") + closed).status, 1) << closed;
        EXPECT_EQ(sh(std::string("zelm_outctl -c stop -o main ") + closed).status, 0) << closed;
    }
    EXPECT_EQ(read_file(OUTPUTS + "main"), "driver=x11\nsim witness=/run/witness\n");
}

}  // namespace
