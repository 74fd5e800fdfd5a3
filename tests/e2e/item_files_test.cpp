// Creating, cloning, renaming and deleting items, and what counts as an item.
#include "e2e/sandbox_testing.hpp"

#include <chrono>

using namespace std::string_literals;

namespace {

class ItemFiles : public Appliance {
protected:
    static std::string stat(const std::string& format, const std::string& path)
    {
        return output_of("stat -c '" + format + "' '" + path + "'");
    }
};

struct Role {
    std::string tool;
    std::string directory;
    std::string item;
    std::string other_item;
    std::string create_switches;
    std::string new_file;
    std::string settings;
};

// What all four tools do alike.
class ItemFilesOfEachRole : public ItemFiles, public testing::WithParamInterface<Role> {
protected:
    const Role& role = GetParam();
    std::string in_directory = "cd " + role.directory + "; ";
    std::string file = role.directory + role.item;
    std::string other_file = role.directory + role.other_item;
    std::string item = " -o '" + role.item + "'";
    std::string to_other = " --to '" + role.other_item + "'";
    std::string caller = output_of("printf '%s %s\n' $(id -u) $(id -g)");
};
INSTANTIATE_TEST_SUITE_P(Roles, ItemFilesOfEachRole,
    testing::Values(Role{"zelm_chctl", CHANNELS, "channel7", "channel8", "", "", ""},
        Role{"zelm_outctl", OUTPUTS, "a b", "c", " --type x", "", "driver=x11\n"},
        Role{"zelm_inctl", INPUTS, "in", "in 2", " --type video-passthru", "#!video-passthru\n",
            "#!video-passthru\n"},
        Role{"zelm_routectl", ROUTERS, "\xc3\xa9", "r", "", "", "driver=knox_rsii\n"}),
    [](const auto& parameter) { return parameter.param.tool; });

TEST_P(ItemFilesOfEachRole, ANewItemIsEmptyOrNamesItsInputDriver)
{
    sh("rm -r /mnt/main");
    const std::string create = role.tool + " -c create" + item + role.create_switches;
    EXPECT_EQ(output_of(create), "");
    EXPECT_EQ(read_file(file), role.new_file);
    EXPECT_EQ(stat("%a %u %g", file), "644 " + caller);
    expect_all({
        {create, 1, "Error: Already exists\n"},
        {"umask 077; rm '" + file + "'; " + create + "; stat -c %a '" + file + "'", 0, "600\n"},
    });
}

TEST_F(ItemFiles, AnInputsMetadataIsPreparedByTheOutsideProgram)
{
    expect_all({
        {"zelm_inctl -c create -o 'in 1' --type trigger-rs232"},
        {"zelm_inctl -c create -o in2 --type video-passthru-v2"},
        {"zelm_inctl -c clone -o in2 --to in3 7</dev/null"},
        {"cat '/mnt/main/tv/inputs/in 1' /mnt/main/tv/inputs/in2 /mnt/main/tv/inputs/in3", 0,
            "#!trigger-rs232\n#!video-passthru-v2\n#!video-passthru-v2\n"},
        {"cat /run/zelm_startitem.log", 0,
            "/usr/bin/zelm_startitem --file /mnt/main/tv/inputs/in 1 --identify --create-meta\n"
            "/usr/bin/zelm_startitem --file /mnt/main/tv/inputs/in2 --identify --create-meta\n"
            "/usr/bin/zelm_startitem --file /mnt/main/tv/inputs/in3 --identify --create-meta\n"},
        {"ls -A /mnt/main/tv/inputs/.in3.metadir", 0, "metadata\n"},
        // How it ends is not looked at, and whether it is there at all neither.
        {"touch /mnt/main/tv/inputs/.in4.metadir; zelm_inctl -c create -o in4 --type trigger-rs232 2>&-"},
        {"rm /run/zelm_startitem.log; zelm_outctl -c create -o o; zelm_outctl -c clone -o o --to p; "
         "zelm_chctl -c create -o channel1; zelm_routectl -c create -o r; ls /run/zelm_startitem.log 2>&-",
            2},
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
    for (const std::string& directory : {CHANNELS, OUTPUTS, INPUTS, ROUTERS}) {
        sh("cd " + std::string(directory) +
            " && touch channel1 channel2 channel10 channel999999 channel0 channel01 channel channel1a "
            "channel1000000 Channel3 channel4~ .channel5 'b c' a~ Z é .hidden all && ln -s channel1 channel12 "
            "&& mkdir channel13 .channel1.metadir && mkfifo channel14");
    }
    const std::string outputs = "Channel3\nZ\nall\nb c\nchannel\nchannel0\nchannel01\nchannel1\nchannel10\n"
                                "channel1000000\nchannel1a\nchannel2\nchannel999999\n\xc3\xa9\n";
    expect_all({
        {"zelm_chctl -c list --name-only", 0, "channel1\nchannel10\nchannel2\nchannel999999\n"},
        {"zelm_outctl -c list --name-only", 0, outputs},
        {"zelm_inctl -c list --name-only", 0, outputs},
        {"zelm_routectl -c list --name-only", 0, outputs},
        {"zelm_outctl -c list --name-only -o 'b c'", 0, "b c\n"},
        {"zelm_outctl -c list --name-only -o all", 0, "all\n"},
        {"zelm_chctl -c list --name-only -o channel0"},
        {"zelm_outctl -c list -o channel12"},
        {"rm -r /mnt/main/tv/inputs; zelm_inctl -c list --name-only", 1},
        {"rm -r /mnt/main/tv/routing; touch /mnt/main/tv/routing; zelm_routectl -c list", 1},
    });
}

TEST_P(ItemFilesOfEachRole, ACloneIsTheFileAloneAndBelongsToTheCaller)
{
    const std::string bytes = "driver=x11\n" + std::string(9000, '\xff') + std::string(3, '\0') + "no end";
    write_file(file, bytes);
    sh("chmod 400 '" + file + "'; chown 1234:1235 '" + file + "'");
    EXPECT_EQ(output_of(role.tool + " -c clone" + item + to_other), "");
    EXPECT_EQ(read_file(other_file), bytes);
    EXPECT_EQ(stat("%a %u %g", other_file), "644 " + caller);
}

TEST_F(ItemFiles, ACloneThatHasNoRoomLeavesNothing)
{
    const Mount disk("-t tmpfs -o size=64k tmpfs", INPUTS);
    SKIP_UNLESS(disk);
    write_file(INPUTS + "a", std::string(40000, 'a'));
    write_file(INPUTS + "b", "b=1\n");
    const std::string no_space = "No space left on device\n";
    expect_all({
        {"zelm_inctl -c clone -o a --to c", 1, "", "Error writing dest, " + no_space},
        {"prlimit --fsize=5000 zelm_inctl -c clone -o a --to c", 1, "", "Incomplete write to dest\n"},
        {"zelm_inctl -c clone -o a --to b", 1, "Error: target name already exists\n"},
        {"cat /dev/zero >/mnt/main/tv/inputs/full 2>&-; zelm_inctl -c create -o c --type trigger-rs232", 1,
            "Failed to create input, " + no_space},
        {"cd /mnt/main/tv/inputs; ls -A; cat b", 0, "a\nb\nfull\nb=1\n"},
    });
}

TEST_P(ItemFilesOfEachRole, ARenamedItemKeepsItsContentsOwnerModeAndMetadir)
{
    write_file(role.directory + "one", "driver=x11\n\xff");
    sh(in_directory +
        "touch .one.tmpup; chmod 640 one; chown 1234:1235 one; mkdir .one.metadir; touch .one.metadir/extra");
    const std::string before = stat("%a %u %g %Y %i", role.directory + "one");
    EXPECT_EQ(output_of(role.tool + " -c rename -o one" + to_other), "");
    EXPECT_EQ(stat("%a %u %g %Y %i", other_file), before);
    EXPECT_EQ(read_file(other_file), "driver=x11\n\xff");
    EXPECT_EQ(output_of(in_directory + "ls .*.metadir"), "extra\n");
    EXPECT_EQ(output_of(in_directory + "find . -name '*one*'"), "");
}

TEST_F(ItemFiles, AMetadirThatCannotFollowIsOnlyWarnedOf)
{
    sh("cd /mnt/main/tv/outputs; touch a b c; mkdir .b.metadir .stale.metadir; touch .stale.metadir/extra");
    expect_all({
        {"zelm_outctl -c rename -o a --to a2"},
        {"zelm_outctl -c rename -o b --to stale", 0, "",
            "WARNING: Failed to rename metadata dir for b, Directory not empty\n"},
        {"mkdir /mnt/main/tv/outputs/.c.metadir /mnt/main/tv/outputs/.c2.metadir; "
         "zelm_outctl -c rename -o c --to c2"},
        {"cd /mnt/main/tv/outputs; ls -A", 0, ".b.metadir\n.c2.metadir\n.stale.metadir\na2\nc2\nstale\n"},
    });
}

TEST_P(ItemFilesOfEachRole, ADeletedItemTakesItsMetadirAlongUnlessThatHoldsMore)
{
    const std::string remove_a = role.tool + " -c delete -o a; " + in_directory + "ls -A . ";
    const std::string warning = "WARNING: failed to remove metadir for a, ";
    expect_all({
        {in_directory +
            "touch a .a.tmpup; mkdir .a.metadir; cd .a.metadir; touch metadata pcn-schedule.xml "
            "current.channel.info .media.item.active.socket .tmpup; " +
            remove_a},
        {in_directory + "touch a; mkdir .a.metadir; touch .a.metadir/metadata .a.metadir/extra; " + remove_a +
                ".a.metadir",
            0, ".:\n.a.metadir\n\n.a.metadir:\nextra\n", warning + "Directory not empty\n"},
        {in_directory + "rm -r .a.metadir; touch a; " + remove_a},
        {in_directory + "touch a .a.metadir; " + remove_a, 0, ".a.metadir\n", warning + "Not a directory\n"},
    });
}

TEST_F(ItemFiles, AChannelOfAnotherNameCanBeRenamedOrDeletedButNotMade)
{
    sh("cd /mnt/main/tv/rendermgr; touch main other; mkdir .main.metadir .other.metadir");
    expect_all({
        {"zelm_chctl -c list --name-only"},
        {"zelm_chctl -c rename -o main --to channel999999"},
        {"zelm_chctl -c clone -o other --to channel3"},
        {"zelm_chctl -c delete -o other"},
        {"ls -A /mnt/main/tv/rendermgr", 0, ".channel999999.metadir\nchannel3\nchannel999999\n"},
    });
}

TEST_P(ItemFilesOfEachRole, ARunningItemIsNeitherRenamedNorDeleted)
{
    write_file(file, role.settings);
    start(role.tool, role.item);
    const std::string drop_copy =
        "; cat '" + other_file + "'; " + role.tool + " -c delete -o '" + role.other_item + "' 2>/dev/null";
    expect_all({
        {role.tool + " -c clone" + item + to_other + drop_copy, 0, role.settings},
        {role.tool + " -c rename" + item + to_other, 1, "Error: output is still running\n"},
        {role.tool + " -c delete" + item, 1, "Error: output is still running\n"},
        {role.tool + " -c stop" + item},
        {role.tool + " -c rename" + item + to_other},
        {role.tool + " -c delete -o '" + role.other_item + "'"},
        {"ls -A " + role.directory},
    });
}

TEST_F(ItemFiles, HaveNamesOfAnyKind)
{
    // Among the long ones, the longest path of a socket that an address holds, and names without room for a
    // metadir's.
    for (const std::string& name : {"studio a"s, " x "s, "100%"s, "-o"s, "tab\there"s, "two\nlines"s,
             "\xc3\xa4"s, "a#b=c"s, std::string(51, 'n'), std::string(52, 'n'), std::string(247, 'n'),
             std::string(255, 'n'), std::string(80, ' ')}) {
        const std::string item = " -o '" + name + "'";
        expect_all({{"zelm_outctl -c create" + item}, {"zelm_outctl -c set --set driver=x11" + item}});
        EXPECT_TRUE(is_alive(start("zelm_outctl", name))) << name;
        const std::string listing = output_of("zelm_outctl -c list --no-manifest" + item);
        EXPECT_NE(listing.find("\t*\tactive=1\n"), std::string::npos) << listing;
        expect_all({
            {"zelm_outctl -c stop" + item},
            {"zelm_outctl -c rename --to b" + item},
            {"zelm_outctl -c rename -o b --to '" + name + "'"},
            {"zelm_outctl -c delete" + item + "; ls -A /mnt/main/tv/outputs"},
        });
    }
}

TEST_F(ItemFiles, OfTwentyCreatesOfOneNameOneWins)
{
    const std::string many = "for i in $(seq 20); do zelm_outctl -c create -o a & done; wait";
    EXPECT_EQ(output_of("{ " + many + "; } | sort | uniq -c | tr -s ' '"), " 19 Error: Already exists\n");
    EXPECT_EQ(read_file(OUTPUTS + "a"), "");
}

}  // namespace
