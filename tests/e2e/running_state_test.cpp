// Whether an item runs, and as which process: what "status" and "list" make of what is in the metadir and of
// what the kernel shows.
#include <cstddef>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "e2e/sandbox_testing.hpp"
#include "platform/socket_io.hpp"

namespace {

constexpr char METADIR[] = "/mnt/main/tv/outputs/.main.metadir";
constexpr char LIVE[] = "/run/live.socket";

// A socket of an own name, behind whose line feed stands a row that gives the one socket the other's path.
Descriptor forge_row(const Descriptor& socket, const std::string& path)
{
    struct stat state {};
    EXPECT_EQ(::fstat(socket.get(), &state), 0);
    Descriptor forger(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    sockaddr_un at{AF_UNIX, {}};
    const std::string name = "\n0 2 0 0 5 1 " + std::to_string(state.st_ino) + " " + path;
    name.copy(at.sun_path + 1, sizeof at.sun_path - 1);
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + name.size());
    EXPECT_EQ(::bind(forger.get(), reinterpret_cast<const sockaddr*>(&at), length), 0);
    EXPECT_NE(read_file("/proc/net/unix").find(name + "\n"), std::string::npos);
    return forger;
}

class RunningState : public Appliance {
protected:
    void SetUp() override
    {
        Appliance::SetUp();
        write_file(OUTPUTS + "main", "driver=x11\n");
    }

    static void expect(bool runs, const char* what)
    {
        SCOPED_TRACE(what);
        expect_each({"zelm_outctl -c status -o main"},
            {runs ? 0 : 1, runs ? "Driver x11 process is running\n" : "Driver x11 process is stopped\n"});
    }
};

TEST_F(RunningState, OnlyALiveSocketInItsPlaceMakesAnItemRun)
{
    const Descriptor live = listen_at(LIVE);
    const Descriptor blank = listen_at("/run/live socket");
    const Descriptor moved = listen_at("/run/moved.socket");
    listen_at("/run/dead.socket");
    const Descriptor forger = forge_row(live, ENTRY);
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

TEST_F(RunningState, ADriverThatTakesNoConnectionsStillRuns)
{
    output_of(std::string("mkdir ") + METADIR);
    const Descriptor listener = listen_at(ENTRY);
    for (int waiting = 0; waiting < 8; ++waiting) {
        // Each leaves one more connection that nobody takes, and the kernel lists it under the same path.
        EXPECT_EQ(pid_of("zelm_outctl", "main"), ::getpid()) << waiting;
        expect(true, "with connections that wait");
    }
}

TEST_F(RunningState, TheTableOfSocketsIsReadAgainWhenItSkipsADriver)
{
    output_of(std::string("mkdir ") + METADIR);
    const Descriptor listener = listen_at(ENTRY);
    const std::string status = "mount --bind /run/net /proc/$$/net && exec zelm_outctl -c status -o main";
    output_of("mkdir -p /run/net; rm -f /run/net/unix");
    write_file("/run/net/unix", "Num  Inod Path\n");
    SKIP_UNLESS(sh(status).status != 32);
    expect_each({status},
        {1, "Driver x11 process is stopped\n",
            "procnetunixsnapshot: one or more required columns are missing. I need inode and path.\n"
            "Headers read from /proc/net/unix were:\n"
            "   entry[0] = 'Num'\n   entry[1] = 'Inod'\n   entry[2] = 'Path'\n"});
    sh("rm /run/net/unix; mkfifo /run/net/unix; (head -1 /proc/net/unix >/run/net/unix; sleep 0.3; "
       "timeout 5 cat /proc/net/unix >/run/net/unix) >/run/out 2>&1 &");
    expect_each({status}, {0, "Driver x11 process is running\n"});
}

TEST_F(RunningState, ADriverOnALayeredFileSystemRuns)
{
    // There a file has other numbers for programs than for the kernel.
    output_of("mkdir -p /run/upper /run/work");
    const Mount layers(
        "-t overlay overlay -o xino=off,lowerdir=/usr/share,upperdir=/run/upper,workdir=/run/work", OUTPUTS);
    SKIP_UNLESS(layers);
    write_file(OUTPUTS + "main", "driver=x11\n");
    start("zelm_outctl", "main");
    expect(true, "on a layer");
    output_of("zelm_outctl -c stop -o main");
}

TEST_F(RunningState, AnotherUsersDriverCountsAsStopped)
{
    SKIP_UNLESS(has_other_users());
    start("zelm_outctl", "main");
    expect(true, "to its own user");
    expect_each({AS_NOBODY + "zelm_outctl -c status -o main"}, {1, "Driver x11 process is stopped\n"});
}

TEST_F(RunningState, NobodyTakesTheShortPathOfALongNameBeforehand)
{
    const std::string name(150, 'n');
    write_file(OUTPUTS + name, "driver=x11\n");
    // The first path is taken, whatever it is.
    sh("strace -qq -o /dev/null --inject=bind:error=EADDRINUSE:when=1 /usr/bin/zelm_out_x11 --file " +
        OUTPUTS + name + " >/run/out 2>&1 &");
    EXPECT_TRUE(eventually([&] { return sh("zelm_outctl -c status -o " + name).status == 0; }) ||
                !HeldRun::is_possible())
        << read_file("/run/out");
    SKIP_UNLESS(sees_other_users());
    output_of("zelm_outctl -c stop -o " + name);
    EXPECT_EQ(output_of("ls /run/item-sockets"), "");
    write_file("/run/plant",
        "cd /run/item-sockets; read last </proc/sys/kernel/ns_last_pid; for i in {1..200}; do for fd in {3..9}; do "
        "echo $((last + i)).$fd; done; done | xargs touch\n");
    output_of(AS_NOBODY + "bash /run/plant; cd " + OUTPUTS + "; chown 1234 * .*.metadir");
    start("zelm_outctl", name);
}

}  // namespace
