// Creating, cloning, renaming and deleting items, and what counts as an item.
#include "e2e/sandbox_testing.hpp"

#include <chrono>

namespace {

class ItemFiles : public Appliance {
  protected:
    struct Role {
        const char* tool;
        const char* directory;
        const char* item;
        const char* other_item;
        const char* create_switches;
    };
    static constexpr Role ROLES[] = {
        {"zelm_chctl", CHANNELS, "channel7", "channel8", ""},
        {"zelm_outctl", OUTPUTS, "a b", "c", " --type x"},
        {"zelm_inctl", INPUTS, "in", "in 2", " --type video-passthru"},
        {"zelm_routectl", ROUTERS, "\xc3\xa9", "r", ""},
    };

    static std::string stat(const std::string& format, const std::string& path)
    {
        return output_of("stat -c '" + format + "' '" + path + "'");
    }
};

TEST_F(ItemFiles, ANewItemIsEmptyOrNamesItsInputDriver)
{
    sh("rm -r /mnt/main");
    for (const Role& role : ROLES) {
        const std::string create =
            std::string(role.tool) + " -c create -o '" + role.item + "'" + role.create_switches;
        EXPECT_EQ(output_of(create), "");
        const std::string file = std::string(role.directory) + role.item;
        EXPECT_EQ(read_file(file), role.directory == INPUTS ? "#!video-passthru\n" : "") << create;
        EXPECT_EQ(stat("%a %u %g", file), "644 " + output_of("printf '%s %s\n' $(id -u) $(id -g)")) << create;
        expect_all({{create, 1, "Error: Already exists\n", ""}});
    }
    EXPECT_EQ(output_of("umask 077; zelm_outctl -c create -o private"), "");
    EXPECT_EQ(stat("%a", "/mnt/main/tv/outputs/private"), "600\n");
}

TEST_F(ItemFiles, AnInputsMetadataIsPreparedByTheOutsideProgram)
{
    expect_all({
        {"zelm_inctl -c create -o 'in 1' --type trigger-rs232", 0, "", ""},
        {"zelm_inctl -c create -o in2 --type video-passthru-v2", 0, "", ""},
        {"zelm_inctl -c clone -o in2 --to in3", 0, "", ""},
        {"cat '/mnt/main/tv/inputs/in 1' /mnt/main/tv/inputs/in2 /mnt/main/tv/inputs/in3", 0,
            "#!trigger-rs232\n#!video-passthru-v2\n#!video-passthru-v2\n", ""},
        {"cat /run/zelm_startitem.log", 0,
            "/usr/bin/zelm_startitem --file /mnt/main/tv/inputs/in 1 --identify --create-meta\n"
            "/usr/bin/zelm_startitem --file /mnt/main/tv/inputs/in2 --identify --create-meta\n"
            "/usr/bin/zelm_startitem --file /mnt/main/tv/inputs/in3 --identify --create-meta\n",
            ""},
        {"ls -A /mnt/main/tv/inputs/.in3.metadir", 0, "metadata\n", ""},
        // How it ends is not looked at, and whether it is there at all neither.
        {"touch /mnt/main/tv/inputs/.in4.metadir; zelm_inctl -c create -o in4 --type trigger-rs232 2>&-", 0,
            "", ""},
        {"rm /run/zelm_startitem.log; zelm_outctl -c create -o o; zelm_outctl -c clone -o o --to p; "
         "zelm_chctl -c create -o channel1; zelm_routectl -c create -o r; ls /run/zelm_startitem.log 2>&-",
            2, "", ""},
    });
}

TEST_F(ItemFiles, AHangingOutsideProgramEndsTheRunAfterFiveSeconds)
{
    constexpr int ENDED_BY_ALARM = 128 + 14;
    write_file("/run/zelm_startitem.sleep", "30");
    const auto begin = std::chrono::steady_clock::now();
    // An alarm that the caller ignores or blocks is none of the tool's.
    const Outcome outcome = sh("trap '' ALRM; exec zelm_inctl -c create -o in --type trigger-rs232");
    const auto took = std::chrono::steady_clock::now() - begin;
    EXPECT_EQ(outcome.status, ENDED_BY_ALARM);
    EXPECT_GE(took, std::chrono::milliseconds(4900));
    EXPECT_LT(took, std::chrono::seconds(9));
    EXPECT_EQ(read_file("/mnt/main/tv/inputs/in"), "#!trigger-rs232\n");
}

TEST_F(ItemFiles, OnlyRegularFilesOfTheRightNamesAreItemsInByteOrder)
{
    for (const char* directory : {CHANNELS, OUTPUTS, INPUTS, ROUTERS}) {
        sh("cd " + std::string(directory) +
            " && touch channel1 channel2 channel10 channel999999 channel0 channel01 channel channel1a "
            "channel1000000 Channel3 channel4~ .channel5 'b c' a~ Z é .hidden all && ln -s channel1 channel12 "
            "&& mkdir channel13 .channel1.metadir && mkfifo channel14");
    }
    const std::string outputs = "Channel3\nZ\nall\nb c\nchannel\nchannel0\nchannel01\nchannel1\nchannel10\n"
                                "channel1000000\nchannel1a\nchannel2\nchannel999999\n\xc3\xa9\n";
    expect_all({
        {"zelm_chctl -c list --name-only", 0, "channel1\nchannel10\nchannel2\nchannel999999\n", ""},
        {"zelm_outctl -c list --name-only", 0, outputs, ""},
        {"zelm_inctl -c list --name-only", 0, outputs, ""},
        {"zelm_routectl -c list --name-only", 0, outputs, ""},
        {"zelm_outctl -c list --name-only -o 'b c'", 0, "b c\n", ""},
        {"zelm_outctl -c list --name-only -o all", 0, "all\n", ""},
        {"zelm_chctl -c list --name-only -o channel0", 0, "", ""},
        {"zelm_outctl -c list -o channel12", 0, "", ""},
        {"rm -r /mnt/main/tv/inputs; zelm_inctl -c list --name-only", 1, "", ""},
        {"rm -r /mnt/main/tv/routing; touch /mnt/main/tv/routing; zelm_routectl -c list", 1, "", ""},
    });
}

TEST_F(ItemFiles, ACloneIsTheFileAloneAndBelongsToTheCaller)
{
    const std::string bytes = "driver=x11\n" + std::string(9000, '\xff') + std::string(3, '\0') + "no end";
    for (const Role& role : ROLES) {
        const std::string source = std::string(role.directory) + role.item;
        write_file(source, bytes);
        sh("chmod 400 '" + source + "'; chown 1234:1235 '" + source + "'; mkdir '" + role.directory +
            ".a.metadir'");
        const std::string clone =
            std::string(role.tool) + " -c clone -o '" + role.item + "' --to '" + role.other_item + "'";
        EXPECT_EQ(output_of(clone), "");
        const std::string target = std::string(role.directory) + role.other_item;
        EXPECT_EQ(read_file(target), bytes) << clone;
        EXPECT_EQ(stat("%a %u %g", target), "644 " + output_of("printf '%s %s\n' $(id -u) $(id -g)"))
            << clone;
    }
    EXPECT_EQ(output_of("cd /mnt/main/tv/outputs; mkdir '.a%20b.metadir'; touch '.a%20b.metadir/metadata';"
                        "zelm_outctl -c clone -o 'a b' --to d; ls -A"),
        ".a%20b.metadir\n.a.metadir\na b\nc\nd\n");
    // Also of a running item, and of an empty one.
    write_file(OUTPUTS + std::string("runs"), "driver=x11\n");
    start("zelm_outctl", "runs");
    expect_all({
        {"zelm_outctl -c clone -o runs --to copy; cat /mnt/main/tv/outputs/copy", 0, "driver=x11\n", ""},
        {"zelm_outctl -c status -o copy", 1, "Driver x11 process is stopped\n", ""},
        {"zelm_routectl -c create -o empty; zelm_routectl -c clone -o empty --to copy; "
         "cat /mnt/main/tv/routing/copy",
            0, "", ""},
    });
}

TEST_F(ItemFiles, ACloneThatHasNoRoomLeavesNothing)
{
    const Mount disk("-t tmpfs -o size=64k tmpfs", INPUTS);
    if (!disk)
        GTEST_SKIP() << "nothing can be mounted here";
    write_file(INPUTS + std::string("a"), std::string(40000, 'a'));
    write_file(INPUTS + std::string("b"), "b=1\n");
    const std::string no_space = "No space left on device\n";
    expect_all({
        {"zelm_inctl -c clone -o a --to c", 1, "", "Error writing dest, " + no_space},
        {"prlimit --fsize=5000 zelm_inctl -c clone -o a --to c", 1, "", "Incomplete write to dest\n"},
        {"zelm_inctl -c clone -o a --to b", 1, "Error: target name already exists\n", ""},
        {"cat /dev/zero >/mnt/main/tv/inputs/full 2>&-; zelm_inctl -c create -o c --type trigger-rs232", 1,
            "Failed to create input, " + no_space, ""},
        {"cd /mnt/main/tv/inputs; ls -A; cat b", 0, "a\nb\nfull\nb=1\n", ""},
    });
}

TEST_F(ItemFiles, ARenamedItemKeepsItsContentsOwnerModeAndMetadir)
{
    for (const Role& role : ROLES) {
        const std::string in_directory = "cd " + std::string(role.directory) + "; ";
        const std::string to = role.other_item;
        const std::string rename = std::string(role.tool) + " -c rename -o one --to '" + to + "'";
        write_file(role.directory + std::string("one"), "driver=x11\n\xff");
        sh(in_directory + "chmod 640 one; chown 1234:1235 one; mkdir .one.metadir; touch .one.metadir/extra");
        const std::string before = stat("%a %u %g %Y %i", role.directory + std::string("one"));
        EXPECT_EQ(output_of(rename), "");
        EXPECT_EQ(stat("%a %u %g %Y %i", role.directory + to), before);
        EXPECT_EQ(read_file(role.directory + to), "driver=x11\n\xff");
        EXPECT_EQ(output_of(in_directory + "ls .*.metadir"), "extra\n") << rename;
        EXPECT_FALSE(exists(role.directory + std::string(".one.metadir"))) << rename;
    }
}

TEST_F(ItemFiles, AMetadirThatCannotFollowIsOnlyWarnedOf)
{
    sh("cd /mnt/main/tv/outputs; touch a b c; mkdir .b.metadir .stale.metadir; touch .stale.metadir/extra");
    expect_all({
        {"zelm_outctl -c rename -o a --to a2", 0, "",
            "WARNING: Failed to rename metadata dir for a, No such file or directory\n"},
        {"zelm_outctl -c rename -o b --to stale", 0, "",
            "WARNING: Failed to rename metadata dir for b, Directory not empty\n"},
        {"mkdir /mnt/main/tv/outputs/.c.metadir /mnt/main/tv/outputs/.c2.metadir; "
         "zelm_outctl -c rename -o c --to c2",
            0, "", ""},
        {"cd /mnt/main/tv/outputs; ls -A", 0, ".b.metadir\n.c2.metadir\n.stale.metadir\na2\nc2\nstale\n", ""},
    });
}

TEST_F(ItemFiles, ADeletedItemTakesItsMetadirAlongUnlessThatHoldsMore)
{
    for (const Role& role : ROLES) {
        const std::string remove = std::string(role.tool) + " -c delete -o ";
        const std::string in_directory = "cd " + std::string(role.directory) + "; ";
        expect_all({
            {in_directory +
                    "touch a; mkdir .a.metadir; cd .a.metadir; touch metadata pcn-schedule.xml "
                    "current.channel.info .media.item.active.socket; " +
                    remove + "a; " + in_directory + "ls -A",
                0, "", ""},
            {in_directory + "touch a; mkdir .a.metadir; touch .a.metadir/metadata .a.metadir/extra; " +
                    remove + "a; " + in_directory + "ls -A . .a.metadir",
                0, ".:\n.a.metadir\n\n.a.metadir:\nextra\n",
                "WARNING: failed to remove metadir for a, Directory not empty\n"},
            {in_directory + "rm -r .a.metadir; touch a; " + remove + "a; ls -A", 0, "",
                "WARNING: failed to remove metadir for a, No such file or directory\n"},
            {in_directory + "touch a .a.metadir; " + remove + "a; ls -A; rm .a.metadir", 0, ".a.metadir\n",
                "WARNING: failed to remove metadir for a, Not a directory\n"},
        });
    }
}

TEST_F(ItemFiles, AChannelOfAnotherNameCanBeRenamedOrDeletedButNotMade)
{
    sh("cd /mnt/main/tv/rendermgr; touch main other; mkdir .main.metadir .other.metadir");
    expect_all({
        {"zelm_chctl -c list --name-only", 0, "", ""},
        {"zelm_chctl -c rename -o main --to channel999999", 0, "", ""},
        {"zelm_chctl -c clone -o other --to channel3", 0, "", ""},
        {"zelm_chctl -c delete -o other", 0, "", ""},
        {"ls -A /mnt/main/tv/rendermgr", 0, ".channel999999.metadir\nchannel3\nchannel999999\n", ""},
    });
}

TEST_F(ItemFiles, ARunningItemIsNeitherRenamedNorDeleted)
{
    const char* const SETTINGS[] = {"", "driver=x11\n", "#!video-passthru\n", "driver=knox_rsii\n"};
    const char* const* settings = SETTINGS;
    for (const Role& role : ROLES) {
        const std::string tool = role.tool;
        const std::string item = role.item;
        write_file(role.directory + item, *settings++);
        start(tool, item);
        const std::string to = std::string("' --to '") + role.other_item + "'";
        expect_all({
            {tool + " -c rename -o '" + item + to, 1, "Error: output is still running\n", ""},
            {tool + " -c delete -o '" + item + "'", 1, "Error: output is still running\n", ""},
            {tool + " -c stop -o '" + item + "'", 0, "", ""},
            {tool + " -c rename -o '" + item + to, 0, "", ""},
            {tool + " -c delete -o '" + role.other_item + "'", 0, "", ""},
            {"ls -A " + std::string(role.directory), 0, "", ""},
        });
    }
}

TEST_F(ItemFiles, OfTwentyCreatesOfOneNameOneWins)
{
    const std::string many = "for i in $(seq 20); do zelm_outctl -c create -o a & done; wait";
    EXPECT_EQ(output_of("{ " + many + "; } | sort | uniq -c | tr -s ' '"), " 19 Error: Already exists\n");
    EXPECT_EQ(read_file(OUTPUTS + std::string("a")), "");
}

}  // namespace
