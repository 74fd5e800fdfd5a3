// zelmctl wait, start, stop, restart and watch: what it says of many items, when, and by which status.
#include <set>
#include <sstream>

#include "e2e/sandbox_testing.hpp"

using namespace std::string_literals;

namespace {

class Companion : public Appliance {
protected:
    static void write_outputs(const std::string& names, const std::string& more = "")
    {
        std::istringstream words(names);
        for (std::string name; words >> name;)
            write_file(OUTPUTS + name, "driver=x11\nsim shutdown ms=1\n" + more);
    }

    // Process ids are shown as PID.
    static void expect_told(const std::vector<Expected>& rows)
    {
        for (const Expected& row : rows) {
            Outcome outcome = sh("{ " + row.command_line + "\n} >/run/out");
            outcome.out =
                output_of(R"(sed -E 's/(, |"pid": )[0-9]+$/\1PID/; s/("pid": )[0-9]+/\1PID/g' /run/out)");
            EXPECT_EQ(outcome.out, row.out) << row.command_line;
            EXPECT_EQ(outcome.err, row.err) << row.command_line;
            EXPECT_EQ(outcome.status, row.status) << row.command_line;
        }
    }

    static double seconds_of(const std::string& command_line)
    {
        const auto begin = std::chrono::steady_clock::now();
        sh(command_line);
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    }
};

// A watch in the background, and what it has told.
class Watch {
public:
    explicit Watch(const std::string& arguments = "output")
    {
        sh(": >/run/told; zelmctl watch " + arguments + " >/run/told 2>/run/trouble & echo $! >/run/watch");
    }
    ~Watch() { sh("kill -CONT $(cat /run/watch); kill -TERM $(cat /run/watch)"); }

    // The lines since the last call, once there are so many, with process ids shown as PID.
    std::string next(long count)
    {
        EXPECT_TRUE(eventually([&] { return lines() >= m_seen + count; })) << read_file("/run/told");
        m_seen += count;
        return output_of("head -n " + std::to_string(m_seen) + " /run/told | tail -n " +
                         std::to_string(count) +
                         R"( | sed -E 's/("pid": )[0-9]+/\1PID/; s/"kind": "output", //')");
    }
    static long lines() { return std::stol(output_of("wc -l </run/told")); }

private:
    long m_seen = 0;
};

TEST_F(Companion, TellsWhatIsWrongWithACommandLine)
{
    const auto behind = [](const std::string& subcommand, const std::string& fault) {
        return "zelmctl: " + subcommand + ": " + fault + "; see zelmctl " + subcommand + " --help\n";
    };
    expect_told({
        {"zelmctl", 2, "", "zelmctl: a subcommand is missing; see zelmctl --help\n"},
        {"zelmctl begin", 2, "", "zelmctl: unknown subcommand begin; see zelmctl --help\n"},
        {"zelmctl start", 2, "", behind("start", "an item is missing, such as output/main, output or all")},
        {"zelmctl wait running", 2, "",
            behind("wait", "an item is missing, such as output/main, output or all")},
        {"zelmctl wait", 2, "", behind("wait", "a state is missing: running, stopped or answering")},
        {"zelmctl wait up all", 2, "", behind("wait", "no state to wait for: up")},
        {"zelmctl stop outputs", 2, "", behind("stop", "no item: outputs")},
        {"zelmctl stop output/../x", 2, "", behind("stop", "no item: output/../x")},
        {"zelmctl stop output/", 2, "", behind("stop", "no item: output/")},
        {"zelmctl stop --supervised all", 2, "", behind("stop", "unknown switch --supervised")},
        {"zelmctl stop all --timeout", 2, "", behind("stop", "--timeout wants a value")},
        {"zelmctl stop all --timeout -1", 2, "", behind("stop", "--timeout wants seconds, not -1")},
        {"zelmctl stop all --timeout nan", 2, "", behind("stop", "--timeout wants seconds, not nan")},
        {"zelmctl wait stopped all >/dev/full", 0, "", ""},
        {"zelmctl stop output/gone >/dev/full", 2, "", "zelmctl: No space left on device\n"},
        {"for s in wait start stop restart watch; do zelmctl $s --help | grep -c ^usage; done | uniq", 0,
            "1\n", ""},
    });
}

TEST_F(Companion, TellsWhatCameOfEachItem)
{
    write_outputs("a b");
    write_file(CHANNELS + "channel1", "");
    write_file(OUTPUTS + "bad\x1b", "driver=none\n");
    const std::string warning = "zelmctl: output/bad\\x1b: WARNING: Unrecognized driver none, "
                                "WARNING: Unable to identify driver\n";
    expect_told({
        {"zelmctl wait stopped output/a output/gone", 0, "output/a: stopped\noutput/gone: absent\n", ""},
        {"zelmctl wait running --timeout 0 output/a", 1, "output/a: not running after 0 s\n", ""},
        {"zelmctl start output/a channel output/a", 0,
            "channel/channel1: running, PID\noutput/a: running, PID\n", ""},
        {"zelmctl wait answering output/a", 0, "output/a: answering, PID\n", ""},
        {"zelmctl wait running --any output/a output/b", 0, "output/a: running, PID\noutput/b: stopped\n",
            ""},
        {"zelmctl wait stopped --timeout 0.01 output/a output/b", 1,
            "output/a: still running after 0.01 s\noutput/b: stopped\n", ""},
        {"zelmctl start output/gone output/bad\x1b", 1,
            "output/gone: absent\noutput/bad\\x1b: ended at once, status 1\n", warning},
        {"zelmctl stop output/gone --json", 0,
            R"({"outputs": {"gone": {"result": "absent"}}})"
            "\n",
            ""},
        {"zelmctl restart output/a output/gone --json", 1,
            R"({"outputs": {"a": {"pid": PID, "result": "running"}, "gone": {"result": "absent"}}})"
            "\n",
            ""},
        {"zelmctl start --autostart all", 0, "", ""},
        {"zelm_outctl -c set -o b --set autostart=1; zelmctl start --supervised --autostart output", 0,
            "output/b: running, PID\n", ""},
        {"zelmctl stop all 2>/dev/null | sort", 0,
            "channel/channel1: stopped\noutput/a: stopped\noutput/b: stopped\noutput/bad\\x1b: stopped\n",
            ""},
    });
    EXPECT_TRUE(eventually([] { return sh("pgrep -f '^/usr/bin/daemon .*tavorn.output.b '").status != 0; }));
}

TEST_F(Companion, TellsOfDriversThatDoNotDoAsTheyShould)
{
    write_outputs("deaf1 deaf2 deaf3", "sim ignore sigterm=1\n");
    write_outputs("mute", "sim never answer=1\n");
    write_outputs("brief", "sim never answer=1\nsim exit after ms=300\n");
    write_outputs("rude", "sim hang up=1\n");
    expect_told({
        {"zelmctl start output/deaf1 output/deaf2 output/deaf3 | wc -l", 0, "3\n", ""},
        {"zelmctl stop output/deaf1 --timeout 0.1", 1, "output/deaf1: still running after 0.1 s\n", ""},
        {"zelmctl restart output/deaf1 --timeout 0.1", 1, "output/deaf1: still running after 0.1 s\n", ""},
        {"zelmctl start output/mute output/rude --json", 0,
            R"({"outputs": {"mute": {"pid": PID, "result": "running"}, "rude": {"pid": PID, "result": "running"}}})"
            "\n",
            ""},
        {"zelmctl wait answering output/mute output/rude --timeout 0.2", 1,
            "output/mute: not answering after 0.2 s\noutput/rude: not answering after 0.2 s\n", ""},
        {"(sleep 0.2; zelm_outctl -c start -o brief) & zelmctl wait answering output/brief", 3,
            "output/brief: ended at once, status 0\n", ""},
    });
    EXPECT_LT(seconds_of("zelmctl stop output --kill --timeout 0.5 >/run/out"), 1.5);
    EXPECT_EQ(output_of("grep -c 'deaf.: stopped' /run/out"), "3\n");
    sh("rm -f " + OUTPUTS + "*; (sleep 0.2; rm " + OUTPUTS + "a) & echo driver=x11 >" + OUTPUTS + "a");
    expect_told({{"zelmctl wait running output/a --timeout 0.5", 1, "output/a: absent\n", ""}});
}

TEST_F(Companion, WaitsForADriverThatTakesItsTime)
{
    const std::string program = "/usr/bin/zelm_slow";
    write_file(program, "#!/bin/sh\nsleep 0.4\nexec /usr/bin/zelm_knox_rsii \"$@\"\n");
    sh("chmod 755 " + program);
    write_file(ROUTERS + "r", "driver=slow\n");
    expect_told({
        {"zelmctl start --timeout 0.1 router/r", 1, "router/r: not running after 0.1 s\n", ""},
        {"zelmctl wait running router/r", 0, "router/r: running, PID\n", ""},
        {"zelmctl restart router/r", 0, "router/r: running, PID\n", ""},
    });
    sh("rm " + program);
}

TEST_F(Companion, WaitsForWhatComesAndNoLonger)
{
    write_outputs("a");
    const std::string begin = "(sleep 0.3; zelmctl ";
    EXPECT_LT(
        seconds_of(begin + "start output/a) & zelmctl wait running output/a && zelmctl wait answering all"),
        5);
    expect_told({{begin + "stop output/a >/dev/null) & zelmctl wait stopped output/a", 0,
        "output/a: stopped\n", ""}});
    bring_up("zelm_outctl", "a");
    sh("rm "s + OUTPUTS + ".a.metadir/.media.item.active.socket");
    expect_told({{"zelmctl wait stopped output/a", 0, "output/a: stopped\n", ""}});
}

TEST_F(Companion, OfAnOrdinaryUserSaysWhatThatMayNotSee)
{
    if (!has_other_users())
        GTEST_SKIP() << "there are no other users";
    write_outputs("a b");
    bring_up("zelm_outctl", "a");
    const std::string why = "you may not see who serves it";
    for (const std::string subcommand : {"wait running", "stop", "restart"})
        expect_told({{AS_NOBODY + "zelmctl " + subcommand + " output/a", 2,
            "output/a: refused, " + why + "\n", "zelmctl: output/a: " + why + "\n"}});
    expect_told({
        {AS_NOBODY + "zelmctl wait stopped output/b", 0, "output/b: stopped\n", ""},
        {AS_NOBODY + "zelmctl watch --for 0.1 output/a", 2,
            R"({"event": "present", "kind": "output", "name": "a"})"
            "\n",
            "zelmctl: output/a: " + why + "\n"},
    });
}

TEST_F(Companion, WithFewDescriptorsSaysSo)
{
    std::string names;
    for (int i = 0; i < 70; ++i)
        names += " o" + std::to_string(i);
    write_outputs(names);
    expect_told({
        {"ulimit -S -n 64; zelmctl start output | grep -c running", 0, "70\n", ""},
        {"ulimit -n 64; zelmctl wait running output", 2, "",
            "zelmctl: watching the items: Too many open files\n"},
        {"ulimit -n 64; zelmctl watch output | grep -v present", 1, "",
            "zelmctl: watching the items: Too many open files\n"},
        {"sed -n 's/^Max open files *//p' /proc/$(pgrep -f outputs/o7$)/limits | cut -d' ' -f1", 0, "64\n",
            ""},
        {"zelmctl stop output | grep -c stopped", 0, "70\n", ""},
    });
}

TEST_F(Companion, WatchTellsEachChangeOnce)
{
    write_outputs("a");
    Watch watch;
    EXPECT_EQ(watch.next(1), R"({"event": "present", "name": "a", "running": false})"
                             "\n");
    const std::vector<std::pair<std::string, std::string>> changes = {
        {"zelm_outctl -c create -o b", R"({"event": "created", "name": "b"})"
                                       "\n"},
        {"zelm_outctl -c set -o b --set title=x", R"({"event": "settings", "name": "b"})"
                                                  "\n"},
        {"printf 'driver=x11\\n' >>" + OUTPUTS + "b", R"({"event": "settings", "name": "b"})"
                                                      "\n"},
        {"zelm_outctl -c rename -o b --to c", R"({"event": "deleted", "name": "b"})"
                                              "\n"
                                              R"({"event": "created", "name": "c"})"
                                              "\n"},
        {"zelmctl start output/c", R"({"event": "running", "name": "c", "pid": PID})"
                                   "\n"},
        {"kill -KILL $(zelm_outctl -c list -o c | sed -n 's/.*pid=//p')",
            R"({"event": "stopped", "name": "c", "signal": 9})"
            "\n"},
        {"zelmctl start output/c", R"({"event": "running", "name": "c", "pid": PID})"
                                   "\n"},
        {"zelmctl stop output/c", R"({"event": "stopped", "name": "c", "status": 0})"
                                  "\n"},
        {"zelm_outctl -c delete -o c", R"({"event": "deleted", "name": "c"})"
                                       "\n"},
        {"rm -r " + OUTPUTS, R"({"event": "deleted", "name": "a"})"
                             "\n"},
        {"mkdir " + OUTPUTS + "; : >" + OUTPUTS + "d", R"({"event": "created", "name": "d"})"
                                                       "\n"},
    };
    for (const auto& [command_line, told] : changes) {
        sh(command_line);
        EXPECT_EQ(watch.next(std::count(told.begin(), told.end(), '\n')), told) << command_line;
    }
    EXPECT_EQ(Watch::lines(), 13);
    expect_told({
        {"timeout 10 zelmctl watch | head -n 1 | cut -c1-19", 0, "{\"event\": \"present\"\n", ""},
        {"zelmctl watch --for 0.1 channel", 0, "", ""},
        {"timeout -s INT 0.2 zelmctl watch channel; echo $?", 0, "124\n", ""},
    });
}

TEST_F(Companion, WatchTellsOfALossWhenTheQueueOverflows)
{
    write_outputs("a b");
    Watch watch;
    watch.next(2);
    sh("kill -STOP $(cat /run/watch); cd " + OUTPUTS +
        "; rm b; for i in $(seq 9000); do : >a; : >x; done; rm x");
    sh("kill -CONT $(cat /run/watch)");
    EXPECT_TRUE(eventually([] { return read_file("/run/told").find("\"gap\"") != std::string::npos; }));
    write_outputs("z");
    EXPECT_TRUE(eventually([] { return read_file("/run/told").find("\"z\"") != std::string::npos; }));
    const std::string behind =
        output_of(R"(sed -n '/"gap"/,/"z"/p' /run/told | sed 's/"kind": "output", //')");
    EXPECT_TRUE(behind.starts_with(
        "{\"event\": \"gap\"}\n{\"event\": \"present\", \"name\": \"a\", \"running\": false}\n"))
        << behind;
    EXPECT_EQ(output_of(R"(grep -c '"deleted".*"b"' /run/told)"), "1\n");
}

// Every process that came up is told once, and its end once behind that, by its own number.
TEST_F(Companion, WatchTellsThousandsOfStartsAndEndsInTheirOrder)
{
#ifdef __SANITIZE_ADDRESS__
    constexpr int ROUNDS = 20;  // take as long as the others without the sanitizers
#else
    constexpr int ROUNDS = 100;
#endif
    std::string names;
    for (int i = 0; i < 10; ++i)
        names += " o" + std::to_string(i);
    write_outputs(names);
    write_file("/run/started", "");
    Watch watch;
    watch.next(10);
    sh("kill -STOP $(cat /run/watch)");  // it comes to the new metadirs when their drivers are gone
    for (int round = 0; round < ROUNDS; ++round)
        sh("zelmctl start output >>/run/started; " +
            (round % 2 == 0 ? "pkill -KILL zelm_out_x11; zelmctl wait stopped output"s
                            : "zelmctl stop output"s) +
            " >/dev/null; kill -CONT $(cat /run/watch)");
    EXPECT_EQ(sh("grep -v running /run/started").out, "");
    EXPECT_TRUE(eventually([&] { return Watch::lines() >= 10 + 2 * 10 * ROUNDS; }));
    const std::string jumbled =
        output_of(R"(awk -F '"' 'NR > 10 { wanted = state[$12] == "running" ? "stopped" : "running"
        if ($4 != wanted) print NR ": " $0; state[$12] = $4; told[$12 " " $4]++ }
        END { for (key in told) if (told[key] != ")" +
                  std::to_string(ROUNDS) + R"(") print key, told[key] }' /run/told)");
    EXPECT_EQ(jumbled, "");
    // The kernel tells of an end once the parent has taken note, for which a busy machine may need too long.
    // Of the first round it can't tell: the watch was stopped.
    EXPECT_GE(std::stol(output_of(R"(grep -c '"signal": 9' /run/told)")), 8 * ROUNDS / 2);
}

}  // namespace
