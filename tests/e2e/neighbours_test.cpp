// What others may do in an item directory, in a metadir and at the same time, and what the tool lets them get
// from it.
#include <csignal>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include "e2e/sandbox_testing.hpp"

using namespace std::string_literals;

namespace {

const std::string IN_OUTPUTS = "cd /mnt/main/tv/outputs; ";

class Neighbours : public Appliance {
protected:
    void SetUp() override
    {
        Appliance::SetUp();
        write_file(OUTPUTS + "a", "driver=x11\n");
        write_file("/run/secret", "root=1\n");
    }

    static void run_in_background(const std::string& command_line)
    {
        sh("(" + command_line + ") >/run/out 2>&1 & echo $! >/run/background");
    }

    static std::string end_of_background()
    {
        EXPECT_TRUE(eventually([] { return sh("test -e /proc/$(cat /run/background)").status != 0; }));
        return read_file("/run/out");
    }
};

TEST_F(Neighbours, WhatIsNoSettingsFileIsNeitherReadNorWaitedFor)
{
    const std::string missing = "/mnt/main/tv/outputs/p config does not exist\nUnable to read config file\n";
    const std::string none = "No such output config /mnt/main/tv/outputs/p\n";
    for (const char* made : {"mkfifo p", "ln -s /run/secret p", "ln -s p p", "mkdir p"}) {
        sh(IN_OUTPUTS + "rm -rf p; " + made);
        for (const char* verb : {"status", "start", "stop"})
            expect_all({{"timeout 5 zelm_outctl -c "s + verb + " -o p", 1, "", missing}});
        expect_all({{"timeout 5 zelm_outctl -c set -o p --set a=1", 0, "", none},
            {"timeout 5 zelm_outctl -c clone -o p --to q", 1, "Error: filesystem entry not a file\n"},
            {"timeout 5 zelm_outctl -c list --name-only", 0, "a\n"}});
    }
}

TEST_F(Neighbours, AFileThatIsSwappedDuringASetIsNotReadThroughALink)
{
    SKIP_UNLESS(HeldRun::is_possible());
    for (const char* swap : {"ln -sf /run/secret a", "rm a; mkfifo a"}) {
        sh(IN_OUTPUTS + "rm -rf a .a.metadir; touch a");
        HeldRun set("mkdirat", "zelm_outctl -c set -o a --set b=1");
        sh(IN_OUTPUTS + swap);
        EXPECT_EQ(set.end(), "Unable to open source\n") << swap;
        EXPECT_EQ(output_of("find /mnt/main/tv/outputs/a -type f"), "") << swap;
    }
    EXPECT_EQ(read_file("/run/secret"), "root=1\n");
}

TEST_F(Neighbours, ALinkedMetadirLeadsNowhere)
{
    sh("mkdir /run/closed; touch /run/closed/metadata; ln -s /run/closed " + OUTPUTS + ".a.metadir");
    expect_all({
        {"zelm_outctl -c set -o a --set b=1", 0, "", "Unable to create temp\n"},
        {"zelm_outctl -c delete -o a", 0, "", "WARNING: failed to remove metadir for a, Not a directory\n"},
        {"ls -A /run/closed; rm -r /run/closed", 0, "metadata\n"},
    });
}

TEST_F(Neighbours, AMediaFilesMetadataIsReadOnlyFromAFile)
{
    write_file(CHANNELS + "channel1", "item=/run/m/clip\n");
    for (const char* made :
        {"mkfifo .clip.metadir/metadata", "ln -s /dev/zero .clip.metadir/metadata",
            "truncate -s 1T .clip.metadir/metadata", "rmdir .clip.metadir; ln -s /run/typed .clip.metadir"}) {
        sh(std::string(
               "rm -rf /run/m /run/typed; mkdir -p /run/m/.clip.metadir /run/typed; cd /run/m; touch clip; "
               "printf '*\\tfile type\\ta/b\\n' >/run/typed/metadata; ") +
            made);
        EXPECT_EQ(output_of("timeout 5 zelm_chctl -c list --no-manifest | grep 'file type'"),
            "\t*\titem file type=\n")
            << made;
    }
}

TEST_F(Neighbours, ALockThatAnybodyCanTakeHoldsNobodyUp)
{
    SKIP_UNLESS(has_other_users());
    sh(IN_OUTPUTS + "mkdir .a.metadir");
    for (const char* locked : {".a.metadir", ".a.tmpup"}) {
        sh("touch " + OUTPUTS + ".a.tmpup");
        run_in_background("exec " + AS_NOBODY + "flock " + OUTPUTS + locked + " sleep 20");
        EXPECT_TRUE(eventually([&] { return sh("flock -n " + OUTPUTS + locked + " true").status != 0; }));
        expect_all({{"timeout 5 zelm_outctl -c set -o a --set b=1"}});
        sh("kill $(cat /run/background)");
    }
    EXPECT_EQ(read_file(OUTPUTS + "a"), "#multiline\ndriver=x11\nb=1\n");
}

TEST_F(Neighbours, AnItemThatGoesDuringASetDoesNotComeBack)
{
    SKIP_UNLESS(HeldRun::is_possible());
    // When the set has waited for the file, and when all but the exchange is done.
    for (const char* call : {"flock", "linkat"})
        for (const auto& [go, left] :
            {std::pair("delete -o a", ""), std::pair("rename -o a --to c", "c\n")}) {
            sh(IN_OUTPUTS + "rm -rf * .[a-z]*; touch a");
            HeldRun set(call, "zelm_outctl -c set -o a --set b=1");
            sh("zelm_outctl -c "s + go);
            EXPECT_EQ(set.end(), "Unable to replace /mnt/main/tv/outputs/a, No such file or directory\n")
                << call << go;
            EXPECT_EQ(output_of(IN_OUTPUTS + "ls; find . -name '*.tmpup' -o -name .a.metadir"), left)
                << call << go;
        }
}

TEST_F(Neighbours, AMetadirsOwnerPutsNothingInTheItemsPlace)
{
    SKIP_UNLESS(has_other_users() && HeldRun::is_possible());
    sh(IN_OUTPUTS + "mkdir .a.metadir; chown 65534:65534 a .a.metadir");
    for (const char* made : {"mkfifo", "ln -s /run/secret", "mkdir"}) {
        HeldRun set("linkat", "zelm_outctl -c set -o a --set b=1");
        for (const std::string name : {".a.metadir/.tmpup", ".a.tmpup"})
            sh(IN_OUTPUTS + AS_NOBODY + "sh -c 'mv " + name + " .a.metadir/old; " + made + " " + name + "'");
        EXPECT_EQ(set.end(), "") << made;
        EXPECT_EQ(output_of(IN_OUTPUTS + "find a -type f; cat a; rm -r .a.metadir/.tmpup"),
            "a\n#multiline\ndriver=x11\nb=1\n")
            << made;
    }
}

TEST_F(Neighbours, AMetadirThatASetMakesBelongsToTheItemsOwner)
{
    SKIP_UNLESS(sees_other_users());
    sh("chown 1234:1235 /mnt/main/tv/outputs/a; zelm_outctl -c set -o a --set b=1");
    EXPECT_EQ(output_of("stat -c '%u %g %a' /mnt/main/tv/outputs/.a.metadir"), "1234 1235 755\n");
    start("zelm_outctl", "a");
}

TEST_F(Neighbours, ADirectoryThatIsSwappedForANewMetadirIsNotGivenAway)
{
    const std::string holds = "strace -qq -o /dev/null --inject=mkdirat:delay_exit=500000 ";
    SKIP_UNLESS(has_other_users() && sh(holds + "true").status == 0);
    sh(IN_OUTPUTS + "chown 65534:65534 . a; mkdir -m 700 closed");
    run_in_background("ASAN_OPTIONS=detect_leaks=0 exec " + holds + "zelm_outctl -c set -o a --set b=1");
    EXPECT_TRUE(eventually([] { return exists(OUTPUTS + ".a.metadir"); }));
    sh(IN_OUTPUTS + AS_NOBODY + "sh -c 'mv .a.metadir made; mv closed .a.metadir'");
    EXPECT_EQ(end_of_background(), "");
    EXPECT_EQ(output_of(IN_OUTPUTS + "stat -c '%u %a' made .a.metadir"), "65534 755\n0 700\n");
}

TEST_F(Neighbours, WhoeverMayWriteAMetadirChoosesNoProcessThatIsStopped)
{
    SKIP_UNLESS(has_other_users());
    write_file(OUTPUTS + "service", "driver=x11\n");
    const pid_t service = start("zelm_outctl", "service");
    const std::string metadir = OUTPUTS + ".a.metadir";
    const struct {
        const char* what;
        const char* set_up;
        bool runs;
    } rows[] = {
        {"root's alone", ":", true},
        {"root's link in another's", "chown 65534 .", true},
        {"another's", "chown -h 65534 . $E", false},
        {"another's link in root's, which others may write", "chown -h 65534 $E; chmod 777 .", false},
    };
    for (const auto& row : rows) {
        sh("rm -rf " + metadir + "; mkdir " + metadir + " && cd " + metadir +
            " && E=.media.item.active.socket && ln -s " + OUTPUTS + ".service.metadir/$E $E; " + row.set_up);
        EXPECT_EQ(sh("zelm_outctl -c status -o a").status, row.runs ? 0 : 1) << row.what;
        if (!row.runs)
            expect_each({"zelm_outctl -c stop -o a", "zelm_outctl -c stop -o a --stop-only"}, {0});
        EXPECT_TRUE(is_alive(service)) << row.what;
    }
}

TEST_F(Neighbours, ASocketThatIsHandedToAServiceMakesItNoDriver)
{
    SKIP_UNLESS(sees_other_users());
    sh(IN_OUTPUTS + "mkdir .a.metadir; chown 65534 .a.metadir");
    ASSERT_EQ(::seteuid(65534), 0);
    const Descriptor handed = listen_at(OUTPUTS + ".a.metadir/.media.item.active.socket");
    ASSERT_EQ(::seteuid(0), 0);
    expect_all({{"zelm_outctl -c status -o a", 1, "Driver x11 process is stopped\n"}});
    const pid_t driver = ::fork();
    if (driver == 0)
        ::_exit(::setresuid(0, 0, 65534) == 0 ? ::pause() : 1);
    const pid_t service = ::fork();
    if (service == 0)
        ::_exit(::pause());
    EXPECT_TRUE(eventually([&] { return pid_of("zelm_outctl", "a") == driver; }));
    for (const pid_t child : {driver, service}) {
        ASSERT_GT(child, 0);
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
    }
}

TEST_F(Neighbours, ALimitOnTheSizeOfFilesIsAFullDisk)
{
    const std::string limited = "prlimit --fsize=4 ";
    expect_all({
        {limited + "zelm_outctl -c set -o a --set b=1 2>&1 | cat", 0,
            "Unable to replace /mnt/main/tv/outputs/a, File too large\n"},
        {limited + "zelm_outctl -c clone -o a --to b 2>&1 | cat", 0, "Incomplete write to dest\n"},
        {limited + "zelm_inctl -c create -o b --type trigger-rs232 2>&1 | cat", 0,
            "Failed to create input, File too large\n"},
        {"cd /mnt/main/tv; ls outputs inputs; cat outputs/a", 0, "inputs:\n\noutputs:\na\ndriver=x11\n"},
    });
    // The signal that a write beyond the limit raises ends a driver as ever.
    const pid_t driver = start("zelm_outctl", "a");
    sh("kill -XFSZ " + std::to_string(driver));
    EXPECT_TRUE(eventually([&] { return !is_alive(driver); }));
}

TEST_F(Neighbours, ADirectoryThatCannotBeReadIsNoShortOne)
{
    SKIP_UNLESS(HeldRun::is_possible());
    for (const char* arguments : {"list", "list --name-only", "start -o all", "stop -o autostart"})
        expect_all(
            {{"ASAN_OPTIONS=detect_leaks=0 strace -qq -o /dev/null --inject=getdents64:error=EIO:when=2 "
              "zelm_outctl -c "s +
                    arguments,
                1, "", "Unable to read /mnt/main/tv/outputs, Input/output error\n"}});
}

}  // namespace
