// What zelmctl check driver says of the simulated driver, as it should be and with each of its misbehaviours.
#include "e2e/sandbox_testing.hpp"

#include <algorithm>
#include <json11.hpp>
#include <sstream>

using namespace std::string_literals;

namespace {

const std::string PROGRAM = " -- zelm_out_x11";

// What the sanitizers keep of what a driver frees is no growth of its own.
const std::string CHECK = "env ASAN_OPTIONS=$ASAN_OPTIONS:quarantine_size_mb=1 zelmctl check driver ";

struct Row {
    std::string settings;
    std::string broken;  // how the only line of a rule that is broken begins; empty if there is to be none
    std::string arguments = PROGRAM;
};

std::vector<std::string> lines_of_broken_rules(const std::string& text)
{
    std::vector<std::string> broken;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with("rule ") || line.starts_with("zelmctl"))
            broken.push_back(line);
    return broken;
}

class CheckDriver : public Appliance {
protected:
    // Many at a time, since they mostly wait, and first those that wait for longest.
    static void expect_all_of(const std::vector<Row>& rows)
    {
        sh("rm -rf /run/check");
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const std::string path = "/run/check/" + std::to_string(i);
            write_file(path, rows[i].settings);
            write_file(path + ".sh", CHECK + "--settings " + path + " " + rows[i].arguments + " >" + path +
                                         ".out 2>&1\necho $? >" + path + ".status\n");
        }
        sh("ls -rv /run/check/*.sh | xargs -n 1 -P 12 sh");
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const std::string path = "/run/check/" + std::to_string(i);
            const std::string said = read_file(path + ".out");
            const std::vector<std::string> broken = lines_of_broken_rules(said);
            EXPECT_EQ(broken.size(), rows[i].broken.empty() ? 0U : 1U) << rows[i].settings << said;
            EXPECT_TRUE(said.starts_with(rows[i].broken)) << rows[i].settings << said;
            EXPECT_EQ(read_file(path + ".status"), rows[i].broken.empty() ? "0\n" : "1\n")
                << rows[i].settings;
        }
    }

    // Other sandboxes have their private directories in the same place. Where that can't be hidden, their
    // processes can't be either, and nothing is looked for.
    const Mount m_tmp{"-t tmpfs tmpfs", "/tmp"};

    std::string left_behind() const
    {
        return m_tmp ? output_of(
                           "ls -d /tmp/zelmctl-check* /tmp/item-socket.* 2>/dev/null; pgrep -l zelm_; true")
                     : "";
    }
};

TEST_F(CheckDriver, FindsEachMisbehaviourByTheRuleThatItBreaksAndByNoOther)
{
    sh("sed 's/^\\[reports answered\\]$/[reports]/' /usr/share/tavorn4/arglist/zelm_out_x11.al >/run/e2e.al");
    expect_all_of({
        {"sim start ms=20000\n",
            "rule 1: nobody listens 10 seconds after the start; \"start\" doesn't tell\n"},
        {"", "rule 1: it ended with status 3 before it listened; ", "-- sh -c 'exit 3'"},
        {"sim exit after ms=500\n", "rule 2: it ended with status 0 by itself; the item runs no more\n"},
        {"sim socket=stream\n", "rule 3: no client can connect, Protocol wrong type for socket; "},
        {"sim socket=relative\n", "rule 4: the kernel's table of sockets lacks the path of the entry; "},
        {"sim socket=moved\n", "rule 5: the kernel knows the socket of that path at another file, "},
        {"sim socket=no-link\n", "rule 6: at a path of 191 bytes the entry is no link that is absolute; "},
        {"sim socket=inherited\n", "rule 7: its children inherit its sockets; "},
        {"sim socket=writable\n", "rule 8: the entry's mode is 0777; others may command the item\n"},
        {"sim socket=unlocked\n", "rule 9: it bound while somebody else held the lock; "},
        {"sim socket=lock-for-ever\n",
            "rule 10: while somebody keeps the lock, nobody listens 10 seconds after"},
        {"sim socket=over-served\n", "rule 11: a second start takes the entry; "},
        {"sim socket=never-over-dead\n", "rule 12: after a kill it ended with status 1 before it listened; "},
        {"sim no accept=1\n", "rule 13: connections aren't accepted; the tools show the item as hung\n"},
        {"sim corrupt=short\n", "rule 14: the reply of 3 bytes is shorter than its header (103); "
                                "the tools take it for an empty report\n"},
        {"sim corrupt=random\n", "rule 15: the reply doesn't begin with \"TVP4\"; "},
        {"sim corrupt=empty-header\n", "rule 16: the reply of 103 bytes tells a length of "},
        {"sim corrupt=sequence\n", "rule 17: the reply doesn't repeat the sequence number; "},
        {"sim flagged packets=2\n", "rule 18: it sends a request, or a reply with the flag of an event; "},
        {"sim corrupt=command\n", "rule 19: the command word of the reply isn't filled up with NULs; "},
        {"sim corrupt=table\n", "rule 20: the table of the reply of "},
        {"sim corrupt=count\n", "rule 21: the reply counts 65535 entries and has room for 15; "},
        {"sim corrupt=texts\n", "rule 22: the name of entry 1, at "},
        {"sim corrupt=no-nul\n", "rule 23: the value of entry 15, at "},
        {"sim corrupt=reserved\n", "rule 24: the last 8 bytes of entry 1 aren't 0; "},
        {"sim crash on report=1\n", "rule 25: asked for a report it was ended by signal 9; "},
        {"sim hang up=1\n", "rule 26: it hangs up instead of answering; the tools show the item as hung\n"},
        {"sim hang up mid=1\n", "rule 26: it hangs up instead of answering; "},
        {"sim never answer=1\n", "rule 27: a report isn't answered within 15 seconds; "},
        {"sim answer delay ms=20000\n", "rule 27: a report isn't answered within 15 seconds; "},
        {"sim hang up after=1\n", "rule 28: the first request is hung up on; "},
        {"sim answer everything=1\n", "rule 29: it answers a packet without the flag of a request; "},
        {"sim unanswered=word\n", "rule 30: an unknown command word isn't answered within 15 seconds; "},
        {"sim unanswered=reported\n",
            "rule 31: a set of a key that it reports isn't answered within 15 seconds; "},
        {"sim unanswered=unknown\n", "rule 32: a set of an unknown key isn't answered within 15 seconds; "},
        {"sim unanswered=no-key\n", "rule 33: a set of the empty key isn't answered within 15 seconds; "},
        {"sim unanswered=no-value\n", "rule 34: a set of an empty value isn't answered within 15 seconds; "},
        {"sim unanswered=command\n", "rule 35: a set of a command isn't answered within 15 seconds; "},
        {"sim unanswered=odd-value\n",
            "rule 36: a set with \"=\" and control bytes in the value isn't answered "},
        {"title=One\n", "rule 37: without a setting it doesn't come up; ",
            "-- sh -c 'test -s \"$2\" && exec zelm_out_x11 \"$@\"' sh"},
        {"sim odd entries=1\n", "rule 38: it reports \">page one\"; the tools warn of it or show no key\n"},
        {"sim corrupt=line-feed\n",
            "rule 39: the entry \"*\\nctive\" holds a line feed; listings break there\n"},
        {"", "rule 40: it reports \"reports answered\", of which the manifest says nothing\n",
            "--manifest /run/e2e.al" + PROGRAM},
        {"sim clients=1\n", "rule 41: beside clients that say nothing it answers nobody else; "},
        {"sim dies of=short\n", "rule 42: after a short packet it was ended by signal 9; "},
        {"sim dies of=split\n", "rule 43: after half a request it was ended by signal 9; "},
        {"sim dies of=long\n", "rule 44: after a long packet it was ended by signal 9; "},
        {"sim dies of=garbled\n", "rule 45: after a garbled request it was ended by signal 9; "},
        {"sim dies of=flood\n",
            "rule 46: beside a client that asks and doesn't read it was ended by signal 9; "},
        // Whoever answers at once may be faster than the client that hangs up.
        {"sim dies of=hang-up\nsim answer delay ms=50\n",
            "rule 47: after clients that hung up before their reply it was ended by signal 9; ",
            "--only 47" + PROGRAM},
        {"sim clients=10\n", "rule 48: of 20 clients at once 9 are answered; "},
        {"sim crowd=shut-out\n", "rule 49: beside 300 idle clients it answers nobody else; "},
        {"sim crowd=oldest\n", "rule 50: among idle clients one that talks is let go; "},
        {"sim keep connections=1\n", "rule 51: it keeps the connections of clients that have gone; "},
        {"sim leak bytes=10000\n", "rule 52: it grows by more than 4 MiB over 10000 reports; "},
        {"sim ignore sigterm=1\n", "rule 53: it runs on 15 seconds after SIGTERM; "},
        {"sim shutdown ms=20000\n", "rule 53: it runs on 15 seconds after SIGTERM; "},
        {"sim leave socket=1\n",
            "rule 54: the entry is left behind; \"restart\" doesn't start the item again\n"},
        {"sim leave child=1\n", "rule 55: a process \"zelm_out_x11\" is left; nobody ends it\n"},
    });
    EXPECT_EQ(left_behind(), "");
}

TEST_F(CheckDriver, FindsNothingWrongWithDriversOfAllKinds)
{
    const std::string manifests = "--manifest /usr/share/tavorn4/arglist/";
    expect_all_of({
        {"", "", manifests + "zelm_rendermgr.al --kind channel -- zelm_rendermgr"},
        {"driver=x11\ntitle=One\n#multiline\ntitle=Two\n", "", manifests + "zelm_out_x11.al" + PROGRAM},
        {"#!video-passthru\n", "",
            manifests + "zelm_video_passthru.al --kind input --type video-passthru"
                        " -- /usr/bin/zelm_video_passthru"},
        {"driver=knox_rsii\n", "", manifests + "zelm_knox_rsii.al --kind router -- zelm_knox_rsii"},
        // An event may come at any time, a big reply is one, and a driver may have processes of its own.
        {"sim flagged packets=1\n", ""},
        {"sim big reply bytes=20000\n", ""},
        {"", "", "-- sh -c 'zelm_out_x11 \"$@\"; exit' sh"},
    });
    SKIP_UNLESS(has_other_users());
    sh("rm -rf /run/item-sockets; rm -f /run/f");
    EXPECT_EQ(output_of(AS_NOBODY + CHECK + PROGRAM), "");
    EXPECT_EQ(left_behind(), "");
}

TEST_F(CheckDriver, TellsItsVerdictToScripts)
{
    write_file("/run/f", "sim corrupt=short\n");
    const std::string broken = "--settings /run/f" + PROGRAM;
    const std::string rule =
        "the reply of 3 bytes is shorter than its header (103); the tools take it for an empty report";
    expect_all({
        {CHECK + "--only 14 " + broken, 1, "rule 14: " + rule + "\n"},
        {CHECK + "--only 27 --only 3 " + broken},
        {CHECK + "--only 17 --only 14 " + broken, 2, "rule 14: " + rule + "\n",
            "zelmctl: rule 17 can't be tried, rule 14 is broken\n"},
        {CHECK + "--only 40" + PROGRAM, 2, "", "zelmctl: rule 40 can't be tried, no manifest is given\n"},
        {CHECK + "--json --only 14 --only 15 " + broken, 2,
            "[{\"message\": \"" + rule +
                "\", \"result\": \"broken\", \"rule\": 14, \"title\": \"A reply has 103 bytes at "
                "least.\"}, {\"message\": \"rule 14 is broken\", \"result\": \"not tried\", \"rule\": 15, \"title\": \"It begins "
                "with \\\"TVP4\\\".\"}]\n",
            "zelmctl: rule 15 can't be tried, rule 14 is broken\n"},
        {CHECK + "--junit --only 14 --only 1 " + broken, 1,
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<testsuite name=\"zelmctl check driver\" tests=\"2\" failures=\"1\" skipped=\"0\">\n"
            "<testcase classname=\"zelm-packets.THE SOCKET\" name=\"1 It is up within 10 seconds of its start.\"/>\n"
            "<testcase classname=\"zelm-packets.LAYOUT\" name=\"14 A reply has 103 bytes at least.\"><failure message=\"" +
                rule + "\"/></testcase>\n</testsuite>\n"},
        {CHECK + "-- /run/gone", 2, "", "zelmctl: /run/gone: No such file or directory\n"},
        {CHECK + "-- /run/f", 2, "", "zelmctl: /run/f: Permission denied\n"},
        {CHECK + "--settings /run/gone" + PROGRAM, 2, "", "zelmctl: /run/gone: No such file or directory\n"},
        {CHECK + "--manifest /run/f" + PROGRAM, 2, "",
            "zelmctl: /run/f: no manifest; zelmctl check manifest says why\n"},
        {CHECK + "--kind input" + PROGRAM, 2, "",
            "zelmctl: check driver: an input has a --type; see zelmctl check driver --help\n"},
        {CHECK + "--only 99" + PROGRAM, 2, "",
            "zelmctl: check driver: no rule: 99; see zelmctl check driver --help\n"},
        {CHECK + "--list | grep -c '^[0-9]* [A-Z ]*: '", 0, "55\n"},
        {CHECK + "--only 1" + PROGRAM + " >/dev/full"},
        {CHECK + "--list >/dev/full", 2, "", "zelmctl: No space left on device\n"},
        {CHECK + "--json --only 1" + PROGRAM + " >/dev/full", 2, "", "zelmctl: No space left on device\n"},
    });
}

// Whoever breaks it off, and whatever the driver has started, is left with nothing.
TEST_F(CheckDriver, LeavesNothingBehindWhenItIsBrokenOff)
{
    SKIP_UNLESS(m_tmp);
    write_file("/run/f", "sim leave child=1\nsim ignore sigterm=1\n");
    for (const char* signal : {"INT", "HUP"}) {  // which comes to the whole group, and so twice
        const Outcome outcome =
            sh("timeout -s "s + signal + " 2 zelmctl check driver --settings /run/f --only 53" + PROGRAM);
        EXPECT_EQ(outcome.status, 124) << outcome.err;
        EXPECT_EQ(left_behind(), "") << signal;
    }
    sh("timeout 3 zelmctl check driver --only 53 -- sh -c 'while :; do setsid sleep 50 & sleep 0.01; done'; true");
    EXPECT_EQ(output_of("pgrep -x sleep; true"), "");
    EXPECT_EQ(left_behind(), "");
}

}  // namespace
