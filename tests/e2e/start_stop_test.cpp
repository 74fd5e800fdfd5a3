// Starting, stopping and restarting drivers: what a started process was given, what the respawn manager is
// told, and when the tool comes back.
#include <csignal>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include "e2e/sandbox_testing.hpp"
#include "platform/comm.hpp"

namespace fs = std::filesystem;

namespace {

using Clock = std::chrono::steady_clock;

// The lines that begin so of what a driver has written down about itself, sorted, once it has.
std::string witness(const std::string& begin, const std::string& path = "/run/witness")
{
    EXPECT_TRUE(eventually([&] { return exists(path); })) << path;
    return sh("grep '^" + begin + "' " + path + " | sort").out;
}

// The standard descriptors of a driver, and nothing else.
std::string descriptors(const std::string& output = "/dev/null")
{
    return "fd 0=/dev/null\nfd 1=" + output + "\nfd 2=" + output + "\n";
}

// How many processes were given the output's settings file.
int processes_of(const std::string& output)
{
    return std::stoi(sh("pgrep -cf '[/]mnt/main/tv/outputs/" + output + "'").out);
}

double seconds_since(Clock::time_point begin)
{
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

// Only the sandbox's own /usr/bin may be covered, never the machine's.
bool can_cover_daemon()
{
    return read_file("/proc/self/mountinfo").find(" /usr/bin ") != std::string::npos;
}

Mount in_place_of_daemon(const std::string& script)
{
    write_file("/run/script", script);
    output_of("cp /usr/bin/daemon /run/daemon; mkdir -p /run/log; chmod 777 /run/log /run/script");
    return {"--bind /run/script", "/usr/bin/daemon"};
}

// Writes down each call of daemon and does nothing.
constexpr char LOGGING[] = R"sh(#!/bin/sh
umask 0
leader=; [ "$(cut -d' ' -f6 /proc/$$/stat)" = $$ ] && leader=' leads'
line=$(printf '%s|' "$@")
echo "$line$(id -u)$leader $(readlink /proc/$$/fd/0 /proc/$$/fd/1 /proc/$$/fd/2 /proc/$$/fd/7 | tr '\n' ' ')" >>/run/log/calls
)sh";

std::string logged_call(const std::string& name, const std::string& rest, uid_t user, const char* leads = "")
{
    return "--noconfig|--name=tavorn." + name + "|" + rest + std::to_string(user) + leads +
           " /dev/null /dev/null /dev/null \n";
}

// The calls of a start and a stop, sorted, once they are as expected. The driver's alone gets a session of
// its own, and it runs under the owner of the settings; the watchdog's runs under the caller.
void expect_logged(const std::string& name, const std::string& driver, const std::string& path, uid_t owner)
{
    const std::string respawn = "--respawn|--delay=10|--|", watchdog = "watchdog." + name;
    std::string expected = logged_call(name, "--stop|", owner) +
                           logged_call(watchdog, "--stop|", ::getuid()) +
                           logged_call(watchdog, respawn + "tavorn-comm-watchdog|" + path + "|", ::getuid());
    if (!driver.empty())
        expected +=
            logged_call(name, respawn + "/usr/bin/" + driver + "|--file|" + path + "|", owner, " leads");
    write_file("/run/expected", expected);
    eventually([&] { return read_file("/run/log/calls").size() >= expected.size(); });
    EXPECT_EQ(sh("sort /run/log/calls").out, sh("sort /run/expected").out);
    fs::remove("/run/log/calls");
}

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
        EXPECT_EQ(witness("argv"), "argv[0]=" + row.program + "\nargv[1]=--file\nargv[2]=" + row.path + "\n");
        EXPECT_EQ(witness("fd "), descriptors()) << row.program;
        EXPECT_EQ(witness("session="), "session=" + witness("pid=").substr(4)) << row.program;
        // Two of the signals belong to the C library.
        EXPECT_EQ(std::stoull(witness("SigIgn=").substr(7), nullptr, 16) & ~0x180000000ULL, 0U);
        EXPECT_EQ(witness("SigBlk="), "SigBlk=0000000000000000\n");

        const std::string debug = "/mnt/main/tv/debug/" + row.debug;
        std::string text = row.program + ": serving " + row.path + "\n";
        for (int run = 0; run < 2; ++run) {
            ASSERT_TRUE(eventually([&] { return sh(row.tool + " -c status" + item).status == 0; }));
            fs::remove("/run/witness");
            output_of(row.tool + " -c restart --debug" + item);
            EXPECT_EQ(witness("fd "), descriptors(debug));
            EXPECT_TRUE(eventually([&] { return read_file(debug) == text; }))
                << "a run adds to " << read_file(debug);
            text += row.program + ": ending\n" + text;
        }
        EXPECT_EQ(fs::status(debug).permissions(), fs::perms(0644)) << debug;
    }
    EXPECT_EQ(fs::status("/mnt/main/tv/debug").permissions(), fs::perms(0755));
}

TEST_F(StartStop, ADebugFileThatCouldBeATrapIsLeftAlone)
{
    constexpr char WARNING[] =
        "Warning: I was unable to open debug output /mnt/main/tv/debug/output.x11.main\n";
    write_file(OUTPUTS + "main", "driver=x11\nsim witness=/run/witness\nsim shutdown ms=0\n");
    const struct {
        const char* set_up;  // with $D where the debug files are to be, and the item's as $F
        const char* taken;   // the file that takes the output
    } rows[] = {
        {"mkdir -p $F", nullptr},
        {"mkdir $D; mkfifo $F", nullptr},
        {"mkdir $D; ln -s /run/other $F", nullptr},
        {"mkdir $D; mknod $F c 1 3", nullptr},
        {"mkdir $D; touch $F; chown 1234 $F", nullptr},
        {"mkdir /run/d; ln -s /run/d $D; chown -h 1234 $D", nullptr},
        {"ln -s ../../../run/d $D", "/run/d/output.x11.main"},
    };
    for (const auto& row : rows) {
        fs::remove("/run/witness");
        if (sh(std::string("D=/mnt/main/tv/debug F=$D/output.x11.main; rm -rf $D; ") + row.set_up).status !=
            0)
            continue;  // a user's own sandbox has no other users and no devices
        EXPECT_EQ(sh("zelm_outctl -c start --debug -o main 2>/run/err").status, 0);
        EXPECT_EQ(witness("fd "), descriptors(row.taken ? row.taken : "/dev/null")) << row.set_up;
        EXPECT_EQ(read_file("/run/err"), row.taken ? "" : WARNING) << row.set_up;
        ASSERT_TRUE(run_eventually("main ")) << row.set_up;
        output_of("zelm_outctl -c stop -o main");
    }
}

TEST_F(StartStop, TheOwnerOfTheFileDecidesUnderWhomADriverRuns)
{
    SKIP_UNLESS(sees_other_users());
    write_file(OUTPUTS + "main", "driver=x11\nsim witness=/run/w/witness\n");
    output_of("mkdir -m 1777 /run/w; mkdir /mnt/main/tv/outputs/.main.metadir; cd /mnt/main/tv/outputs; "
              "chown 1234:2345 main .main.metadir");
    output_of("setpriv --groups=4,24 zelm_outctl -c start -o main");
    EXPECT_EQ(witness("e\\?[ug]id=", "/run/w/witness"), "egid=2345\neuid=1234\ngid=2345\nuid=1234\n");
    EXPECT_EQ(witness("groups=", "/run/w/witness"), "groups=\n");

    // A driver that would keep the caller's groups doesn't run.
    write_file(OUTPUTS + "other", "driver=x11\n");
    output_of("chown 1234:0 /mnt/main/tv/outputs/other; "
              "setpriv --bounding-set=-setgid --inh-caps=-setgid zelm_outctl -c start --debug -o other");
    EXPECT_TRUE(eventually([] {
        return read_file("/mnt/main/tv/debug/output.x11.other") ==
               "setgroups() failed, Operation not permitted\n";
    }));

    // A caller that may not end it says so, and one that may does.
    ASSERT_TRUE(run_eventually("main "));
    const std::string stop = "zelm_outctl -c stop --stop-only -o main";
    expect_all({
        {"setpriv --bounding-set=-kill --inh-caps=-kill " + stop, 0, "",
            "Driver not running x11, Operation not permitted\n"},
        {stop},
    });
    EXPECT_EQ(running(), "");
}

TEST_F(StartStop, TheManagerIsToldTheSameNamesAtStartAndStop)
{
    SKIP_UNLESS(can_cover_daemon());
    const Mount logged = in_place_of_daemon(LOGGING);
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
    const uid_t owner = has_other_users() ? 1234 : ::getuid();
    for (const auto& row : rows) {
        write_file(row.path, row.settings);
        EXPECT_EQ(::chown(row.path.c_str(), owner, ::getgid()), 0);
        const std::string item = " -o '" + fs::path(row.path).filename().string() + "' 7>>/run/other ";
        output_of(row.tool + " -c start" + item + row.switches);
        output_of(row.tool + " -c stop" + item);  // it doesn't run, and both are let go of nevertheless
        expect_logged(row.name, row.program, row.path, owner);
    }
    // Without its settings file a driver doesn't run.
    sh("zelm_chctl --use-daemon -c start -o channel2; zelm_chctl -c stop -o channel2");
    expect_logged("channel.channel2", "", CHANNELS + "channel2", ::getuid());
    for (const std::string command : {"stop --stop-only", "stop --x11conflict 1", "start --x11conflict 0"})
        output_of("zelm_outctl -o 'studio a' -c " + command);
    EXPECT_FALSE(eventually([] { return exists("/run/log/calls"); }, std::chrono::milliseconds(200)))
        << read_file("/run/log/calls");
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
    ASSERT_EQ(::kill(pid, SIGKILL), 0);
    pid = comes_back_after(pid);
    EXPECT_TRUE(is_alive(pid)) << "it died";
    output_of("zelm_outctl -c stop --stop-only -o 'studio a'");
    EXPECT_FALSE(is_alive(pid));
    pid = comes_back_after(pid);
    EXPECT_TRUE(is_alive(pid)) << "only it was stopped";
    output_of("zelm_outctl -c stop -o 'studio a'");
    EXPECT_TRUE(eventually([] { return processes_of("studio a") == 0; }));
    EXPECT_EQ(running(), "");
}

TEST_F(StartStop, AStopStopsAlsoWhenTheManagerIsNotTold)
{
    SKIP_UNLESS(can_cover_daemon());
    const Mount slow = in_place_of_daemon(
        "#!/bin/bash\n[[ $* != *--stop ]] || sleep 20\nexec -a /usr/bin/daemon /run/daemon \"$@\"\n");
    const auto runs_as = [](int processes) {
        return eventually([&] { return processes_of("main") == processes; });
    };
    write_file(OUTPUTS + "main", "driver=x11\nautorestart=1\nsim shutdown ms=0\n");
    const pid_t old = start("zelm_outctl", "main");
    const Clock::time_point begin = Clock::now();
    output_of("zelm_outctl -c restart -o main");
    EXPECT_TRUE(runs_as(4)) << "driver and watchdog, and who watches over them";
    EXPECT_FALSE(is_alive(old));
    ASSERT_TRUE(run_eventually("main "));
    output_of("zelm_outctl -c stop -o main");
    EXPECT_TRUE(runs_as(0));
    EXPECT_LT(seconds_since(begin), 15.0);
}

TEST_F(StartStop, AProcessThatWasGivenTheIdOfADriverIsNotItsTarget)
{
    write_file(OUTPUTS + "a", "driver=x11\nsim ignore sigterm=1\n");
    write_file(OUTPUTS + "b", "driver=x11\n");
    bring_up("zelm_outctl", "a");
    const std::string id = std::to_string(start("zelm_outctl", "b"));
    const Outcome outcome = sh("ID=" + id + R"sh(; zelm_outctl -c stop -o all --timeout 2 & sleep 0.5
        kill -9 $ID; while [ -e /proc/$ID ]; do sleep 0.01; done
        echo $((ID - 1)) >/proc/sys/kernel/ns_last_pid && { sleep 60 & }
        echo $!; wait %1; kill $!)sh");
    if (outcome.out != id + "\n")
        GTEST_SKIP() << "process ids can't be chosen here";
    EXPECT_EQ(outcome.status, 0) << "it was still there to be ended";
    EXPECT_EQ(outcome.err, "Driver not running x11, No such process\n");
}

TEST_F(StartStop, ADriverIsStoppedThoughConnectionsToItEndMeanwhile)
{
    SKIP_UNLESS(HeldRun::is_possible());
    write_file(OUTPUTS + "main", "driver=x11\n");
    bring_up("zelm_outctl", "main");
    std::vector<CommSocket> connections;
    for (int i = 0; i < 9; ++i) {
        connections.emplace_back(comm_socket_v4_create());
        EXPECT_EQ(comm_socket_v4_connect_to(connections.back().get(), ENTRY), 0);
    }
    HeldRun stop("pidfd_open", "zelm_outctl -c stop -o main");
    connections.clear();
    eventually([] { return sh("grep -c output.*active.socket$ /proc/net/unix").out == "1\n"; });
    EXPECT_EQ(stop.end(), "");
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
        {"start", "08", "drmkms fbdev "},
        {"start", "4294967297", "drmkms fbdev x11 "},  // 1 in the 32 bits that count
        {"stop", "0x0", "drmkms fbdev "},
        {"start", "-1", "alsa drmkms fbdev x11 "},
        {"stop", "0x10", "alsa x11 "},
        {"stop", "-5 --x11conflict 2147483648", ""},
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
    const std::string pids = "zelm_outctl -c list --no-manifest --timeout -1 | sed -n 's/.*pid=//p'";
    output_of("zelm_outctl -c start -o autostart");
    EXPECT_TRUE(run_eventually(with_flag)) << running();
    output_of("zelm_outctl -c start -o all");
    EXPECT_TRUE(run_eventually(with_flag + without)) << running();
    output_of(pids + " >/run/before; zelm_outctl -c restart -o all");
    EXPECT_TRUE(run_eventually(with_flag + without)) << running();
    EXPECT_EQ(sh(pids + " | paste /run/before - | awk '{ printf $1 == $2 ? \"-\" : \"x\" }'").out, "xxx-----")
        << "a restart of all is one of those with the flag";
    output_of("zelm_outctl -c stop -o autostart");
    EXPECT_EQ(running(), without);
    output_of("zelm_outctl -c stop -o all");
    EXPECT_EQ(running(), "");
}

TEST_F(StartStop, OfManyDriversOfAnItemOneServesIt)
{
    write_file(OUTPUTS + "main", "driver=x11\n");
    output_of("for i in 1 2 3 4 5 6 7 8 9; do zelm_outctl -c start -o main & done; wait");
    ASSERT_TRUE(run_eventually("main "));
    EXPECT_TRUE(eventually([] { return processes_of("main") == 1; }));
    const pid_t pid = pid_of("zelm_outctl", "main");
    output_of("zelm_outctl -c start -o main; zelm_outctl -c start -o main --debug --force");
    EXPECT_TRUE(eventually([] {
        return read_file("/mnt/main/tv/debug/output.x11.main") ==
               "/usr/bin/zelm_out_x11: cannot listen in /mnt/main/tv/outputs/.main.metadir, Address already in use\n";
    }));
    EXPECT_EQ(pid_of("zelm_outctl", "main"), pid);
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
            EXPECT_EQ(processes_of("main"), 0) << row.what;
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
    EXPECT_NEAR(seconds_since(begin), 2.5, 1.5);
    EXPECT_TRUE(eventually([] { return read_file("/run/ended") == "124\n124\n"; }))
        << "without a limit they wait";
    EXPECT_TRUE(is_alive(pid)) << "nothing but the signal was sent";
    begin = Clock::now();
    const std::string system_time = output_of(
        "bash -c 'TIMEFORMAT=%S; time zelm_outctl -c stop -o main --timeout 2 --kill-timeout' 2>&1");
    EXPECT_LT(std::stod(system_time), 0.2) << "it waits without work";
    EXPECT_NEAR(seconds_since(begin), 3.5, 1.5);
    EXPECT_TRUE(eventually([&] { return !is_alive(pid); }));
}

TEST_F(StartStop, ACallerWithoutStandardStreamsIsServed)
{
    write_file(OUTPUTS + "main", "driver=x11\nsim witness=/run/witness\n");
    for (const char* closed : {"<&-", ">&-", "2>&-", "<&- >&- 2>&-"}) {
        fs::remove("/run/witness");
        EXPECT_EQ(sh(std::string("zelm_outctl -c start -o main ") + closed).status, 0) << closed;
        EXPECT_EQ(witness("fd "), descriptors()) << closed;
        EXPECT_TRUE(run_eventually("main ")) << closed;
        EXPECT_EQ(sh(std::string("zelm_outctl -c list ") + closed).status, 0) << closed;
        EXPECT_EQ(sh(std::string("zelm_outctl -c status -o no ") + closed).status, 1) << closed;
        EXPECT_EQ(sh(std::string("zelm_outctl -c stop -o main ") + closed).status, 0) << closed;
    }
    EXPECT_EQ(read_file(OUTPUTS + "main"), "driver=x11\nsim witness=/run/witness\n");
}

}  // namespace
