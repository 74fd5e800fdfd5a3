// Whether an item runs, and as which process: what "status" and "list" make of what is in the metadir and of
// what the kernel shows.
#include <csignal>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "e2e/sandbox_testing.hpp"
#include "platform/socket_io.hpp"

namespace {

constexpr char METADIR[] = "/mnt/main/tv/outputs/.main.metadir";
constexpr char ENTRY[] = "/mnt/main/tv/outputs/.main.metadir/.media.item.active.socket";
constexpr char LIVE[] = "/run/live.socket";

Descriptor listen_at(const std::string& path)
{
    Descriptor listener(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0));
    SocketAddress at;
    EXPECT_TRUE(at.set(path));
    EXPECT_EQ(::bind(listener.get(), reinterpret_cast<const sockaddr*>(&at.address), at.length), 0) << path;
    EXPECT_EQ(::listen(listener.get(), 8), 0);
    return listener;
}

// The process that a listing shows, without waiting for an answer.
pid_t listed_pid()
{
    const std::string listing = output_of("zelm_outctl -c list -o main --no-manifest --timeout -1");
    const std::size_t at = listing.find("\t*\tpid=");
    return at == std::string::npos ? 0 : std::stoi(listing.substr(at + 7));
}

// A process that holds what the test holds, until it is ended.
class Holder {
public:
    explicit Holder(const char* name) : m_pid(::fork())
    {
        if (m_pid == 0) {
            ::prctl(PR_SET_NAME, name);
            for (;;)
                ::pause();
        }
    }
    ~Holder() { end(); }
    void end()
    {
        if (m_pid > 0 && ::kill(m_pid, SIGKILL) == 0)
            ::waitpid(m_pid, nullptr, 0);
        m_pid = 0;
    }
    pid_t pid() const { return m_pid; }

private:
    pid_t m_pid;
};

class RunningState : public Appliance {
protected:
    void SetUp() override
    {
        Appliance::SetUp();
        write_file(std::string(OUTPUTS) + "main", "driver=x11\n");
    }

    static void make_metadir() { ASSERT_EQ(::mkdir(METADIR, 0777), 0); }

    static void expect(bool runs, const char* what)
    {
        const Outcome outcome = sh("zelm_outctl -c status -o main");
        EXPECT_EQ(outcome.status, runs ? 0 : 1) << what;
        EXPECT_EQ(outcome.out, runs ? "Driver x11 process is running\n" : "Driver x11 process is stopped\n")
            << what;
        EXPECT_EQ(outcome.err, "") << what;
    }
};

TEST_F(RunningState, OnlyALiveSocketInItsPlaceMakesAnItemRun)
{
    const Descriptor live = listen_at(LIVE);
    const Descriptor blank = listen_at("/run/live socket");
    const Descriptor moved = listen_at("/run/moved.socket");
    listen_at("/run/dead.socket");
    write_file("/run/file", "");
    const struct {
        const char* what;
        const char* set_up;  // in a metadir that is there and empty
        bool runs;
    } rows[] = {
        {"no metadir", "rmdir $PWD", false},
        {"a metadir that is a file", "rmdir $PWD; touch $PWD", false},
        {"an empty metadir", ":", false},
        {"a file", "touch $E", false},
        {"a directory", "mkdir $E", false},
        {"a dead socket", "mv /run/dead.socket $E", false},
        {"a live socket that was bound elsewhere", "mv /run/moved.socket $E", false},
        {"an absolute link to a live socket", "ln -s /run/live.socket $E", true},
        {"a relative link to it", "ln -s ../../../../../run/live.socket $E", false},
        {"a link to a link to it", "ln -s /run/live.socket /run/link; ln -s /run/link $E", false},
        {"another spelling of its path", "ln -s /run//live.socket $E", false},
        {"a link to a live socket with a blank", "ln -s '/run/live socket' $E", false},
        {"a link to a file", "ln -s /run/file $E", false},
        {"a link to nothing", "ln -s /run/nothing $E", false},
        {"a metadir that is a link",
            "rmdir $PWD; mkdir /run/d; ln -s /run/live.socket /run/d/$E; ln -s /run/d $PWD", false},
    };
    for (const auto& row : rows) {
        ::rmdir("/run/d");
        output_of(std::string("rm -rf ") + METADIR + "; mkdir " + METADIR + " && cd " + METADIR +
                  " && E=.media.item.active.socket && " + row.set_up);
        expect(row.runs, row.what);
    }
}

TEST_F(RunningState, WhatCannotBeLookedAtIsStoppedWithAWord)
{
    const std::string too_long(250, 'x');
    write_file(OUTPUTS + too_long, "driver=x11\n");
    output_of("ln -s main /mnt/main/tv/outputs/link; mkdir /mnt/main/tv/rendermgr/channel1");
    const struct {
        std::string command_line;
        const char* out;
        const char* err;
    } rows[] = {
        {"zelm_outctl -c status -o link", "Driver x11 process is stopped\n",
            "No such output config /mnt/main/tv/outputs/link\n"},
        {"zelm_chctl -c status -o channel1", "Driver channel1 process is stopped\n",
            "No such output config /mnt/main/tv/rendermgr/channel1\n"},
        {"zelm_inctl -c status -o no", "Driver no process is stopped\n",
            "No such output config /mnt/main/tv/inputs/no\n"},
        {"zelm_outctl -c status -o no", "",
            "/mnt/main/tv/outputs/no config does not exist\nUnable to read config file\n"},
        {"zelm_routectl -c status -o no", "",
            "/mnt/main/tv/routing/no config does not exist\nUnable to read config file\n"},
        {"zelm_outctl -c status -o " + too_long, "Driver x11 process is stopped\n", "Cannot get metadir\n"},
    };
    for (const auto& row : rows) {
        const Outcome outcome = sh(row.command_line);
        EXPECT_EQ(outcome.status, 1) << row.command_line;
        EXPECT_EQ(outcome.out, row.out) << row.command_line;
        EXPECT_EQ(outcome.err, row.err) << row.command_line;
    }
}

TEST_F(RunningState, TheHighestProcessThatHoldsTheSocketIsTheDriver)
{
    make_metadir();
    const Descriptor listener = listen_at(ENTRY);
    EXPECT_EQ(listed_pid(), ::getpid());
    Holder forked("a b (c");
    EXPECT_EQ(listed_pid(), std::max(::getpid(), forked.pid()));
    forked.end();
    EXPECT_EQ(listed_pid(), ::getpid());
}

TEST_F(RunningState, ADriverThatTakesNoConnectionsStillRuns)
{
    make_metadir();
    const Descriptor listener = listen_at(ENTRY);
    for (int waiting = 0; waiting < 8; ++waiting) {
        // Each leaves one more connection that nobody takes, and the kernel lists it under the same path.
        EXPECT_EQ(listed_pid(), ::getpid()) << waiting;
        expect(true, "with connections that wait");
    }
}

TEST_F(RunningState, ASocketThatNoProcessHoldsIsNobodys)
{
    make_metadir();
    Descriptor listener = listen_at(ENTRY);
    expect(true, "held by the test");
    // A descriptor that is on its way between two processes is in the table of sockets and of no process.
    int pair[2];
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0, pair), 0);
    const Descriptor one(pair[0]);
    const Descriptor other(pair[1]);
    char byte = 0;
    iovec data{&byte, 1};
    alignas(cmsghdr) char control[CMSG_SPACE(sizeof(int))] = {};
    msghdr message{};
    message.msg_iov = &data;
    message.msg_iovlen = 1;
    message.msg_control = control;
    message.msg_controllen = sizeof control;
    cmsghdr* const rights = CMSG_FIRSTHDR(&message);
    rights->cmsg_level = SOL_SOCKET;
    rights->cmsg_type = SCM_RIGHTS;
    rights->cmsg_len = CMSG_LEN(sizeof(int));
    const int sent = listener.get();
    std::copy_n(
        reinterpret_cast<const char*>(&sent), sizeof sent, reinterpret_cast<char*>(CMSG_DATA(rights)));
    ASSERT_EQ(::sendmsg(one.get(), &message, 0), 1);
    listener.reset();
    expect(false, "held by nobody");
}

TEST_F(RunningState, AnotherUsersDriverCountsAsStopped)
{
    constexpr char AS_NOBODY[] = "setpriv --reuid=65534 --regid=65534 --clear-groups ";
    if (sh(std::string(AS_NOBODY) + "true").status != 0)
        GTEST_SKIP() << "there are no other users here";
    start("zelm_outctl", "main");
    expect(true, "to its own user");
    EXPECT_EQ(
        sh(std::string(AS_NOBODY) + "zelm_outctl -c status -o main").out, "Driver x11 process is stopped\n");
}

TEST_F(RunningState, ItemsOfAnyNameAreFound)
{
    for (const std::string name :
        {"studio a", " x ", "100%", "-o", "tab\there", "two\nlines", "\xc3\xa4", "a#b=c"}) {
        write_file(OUTPUTS + name, "driver=x11\n");
        const pid_t pid = start("zelm_outctl", name);
        EXPECT_TRUE(is_alive(pid)) << name;
        EXPECT_EQ(output_of("zelm_outctl -c stop -o '" + name + "'"), "");
        EXPECT_FALSE(is_alive(pid)) << name;
    }
}

}  // namespace
