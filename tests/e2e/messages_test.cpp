// The words that front ends and scripts depend on: each message with its stream and exit status.
#include "e2e/sandbox_testing.hpp"

namespace {

const std::string TOO_LONG_NAME(256, 'n');  // no file can be called so

constexpr char METADIR_NAME_ERROR[] = "Error: .b.metadir is the name of a metadata directory\n";
constexpr char CHANNEL_NAME_ERROR[] =
    "Error: Channel name invalid. Channel name must be 'channel' followed by a number less than 1000000\n";
constexpr char CHANNEL_NAME_HELP[] = "Channel name must be channel followed by number.\nExample:\n"
                                     "   channel1\n   channel2\n   channel66\n";

// The usage text of a tool, which begins with the word by which it calls itself and the one for its role.
std::string usage(const std::string& tool, const std::string& role)
{
    const char* const output_line =
        "   --x11conflict <x>         Only operate on those outputs affected by X11 start/stop\n";
    return tool + " [options]\nTavorn 4.0 " + role + R"( control
   -c <command>
          start              Start, if not started
          stop               Stop, if not stopped
          list               List
          status             Get status
          set                Update configuration
          create             Create output
          delete             Delete output
          rename             Rename output
   -o <output/channel/etc>   Specify who to act on
   --to <name>               What to rename to
   --force                   For start/stop, force action
   --debug                   Start with debug logging
   --no-manifest             Don't read manifest file
   --quicksummary            Quicksummary mode
   --ex-quicksummary         Everything except quicksummary mode
   --desc                    Include descriptions
   --timeout <t>             Timeout in t seconds (per item). default 10 seconds. Enter -1 for infinite wait.
   --kill-timeout            For 'stop', SIGKILL on timeout
   --type <x>                Specify the type. For inputs: trigger-rs232, video-passthru, video-passthru-v2
   --name-only               When used with '-c list' list only the names, don't provide details
   --stop-only               Stop only the item. If autorestart, the watch daemon will restart it.
)" + (role == "output" ? output_line : "") +
           R"(   --set <name>=<value>      With 'set', change a configuration parameter
   --use-daemon              Start with the 'daemon' tool
   --json                    For -c list, emit list as JSON
                               To set json use json as the key.  For exampe
                               -c set -o channel1 --set 'json={"global item 8 audio volume":100}'
   --json-from <filename>    Where to consume json from (file or stdin)
                               - is stdin
   --json-out <stringified json> The json to consume
   --json-driver             The driver the consume json is to use
)";
}

const std::string CHANNEL_USAGE = usage("zelm_chctl", "channel");
const std::string OUTPUT_USAGE = usage("zelm_outctl", "output");
const std::string INPUT_USAGE = usage("zelm_inctl", "input");
const std::string ROUTER_USAGE = usage("zelm_routctl", "routing");

class Messages : public Appliance {
protected:
    void SetUp() override
    {
        Appliance::SetUp();
        // "a" of each role is an item in order.
        write_file(OUTPUTS + "a", "driver=x11\n");
        write_file(CHANNELS + "a", "");
        write_file(INPUTS + "a", "#!video-passthru\n");
        write_file(ROUTERS + "a", "driver=knox_rsii\n");
        for (const std::string& directory : {OUTPUTS, CHANNELS, INPUTS, ROUTERS})
            sh("cd " + directory + "; mkdir directory .a.metadir");
    }
};

TEST_F(Messages, OfTheCommandLine)
{
    expect_all({
        {"zelm_outctl", 1, "", "Unknown command \n"},
        {"zelm_outctl -c frob", 1, "", "Unknown command frob\n"},
        {"zelm_outctl -c LIST", 1, "", "Unknown command LIST\n"},
        {"zelm_outctl -c list -o ..", 1, "", ".. is not a valid name\n"},
        {"zelm_outctl -c list -o a/b", 1, "", "forward slashes not allowed in name\n"},
        {"zelm_chctl -c create -o /", 1, "", "forward slashes not allowed in name\n"},
        {"zelm_outctl -o .. -c frob", 1, "", ".. is not a valid name\n"},
        {"zelm_outctl -c set -o a --json-out", 1, "", "--json-out parameter required\n"},
        {"zelm_outctl -c", 1, "", "--c parameter required\n"},
        {"zelm_outctl -c list ---o", 1, "", "--o parameter required\n"},
        {"zelm_outctl -c create -o b --set", 1, "", "--set parameter required\n"},
    });
    expect_each({"zelm_outctl -c stop", "zelm_chctl -c start", "zelm_inctl -c restart",
                    "zelm_routectl -c set --set a=1", "zelm_outctl -c status", "zelm_outctl -c status -o all",
                    "zelm_chctl -c status -o autostart"},
        {1, "", "You must specify an output\n"});
    EXPECT_FALSE(exists(OUTPUTS + "b")) << "a line that lacks a value does nothing";
}

TEST_F(Messages, OfTheUsageOfEachTool)
{
    expect_all({
        {"zelm_chctl --help", 1, "", CHANNEL_USAGE},
        {"zelm_outctl -h -c create -o b", 1, "", OUTPUT_USAGE},
        {"zelm_inctl ---help frob", 1, "", INPUT_USAGE},
        {"zelm_routectl -help", 1, "", ROUTER_USAGE},
        {"zelm_chctl frob --help", 1, "", "Unexpected non-switch frob\n" + CHANNEL_USAGE},
        {"zelm_outctl -c list ''", 1, "", "Unexpected non-switch \n" + OUTPUT_USAGE},
        {"zelm_outctl -c create -o b c", 1, "", "Unexpected non-switch c\n" + OUTPUT_USAGE},
        {"zelm_inctl --frob", 1, "", "Unknown switch frob\n" + INPUT_USAGE},
        {"zelm_outctl -", 1, "", "Unknown switch \n" + OUTPUT_USAGE},
        {"zelm_routectl --Json", 1, "", "Unknown switch Json\n" + ROUTER_USAGE},
        {"zelm_routectl --o=a", 1, "", "Unknown switch o=a\n" + ROUTER_USAGE},
    });
    EXPECT_FALSE(exists(OUTPUTS + "b"));
}

TEST_F(Messages, OfAToolByAnotherName)
{
    sh("mkdir -p /run/names; cd /run/names; for name in other Zelm_outctl lt-zelm_chctl zelm_routctl; do "
       "ln -s /usr/bin/zelm_outctl $name; done");
    constexpr int ABORTED = 128 + 6;
    expect_all({
        // There is no usage text for it.
        {"exec /run/names/other --help", ABORTED},
        {"exec /run/names/other --frob", ABORTED, "", "Unknown switch frob\n"},
        {"exec /run/names/other frob", ABORTED, "", "Unexpected non-switch frob\n"},
        {"/run/names/other --json-out", 1, "", "--json-out parameter required\n"},
        {"/run/names/other -c list", 1, "", "Error: I don't recognize '/run/names/other'\n"},
        {"/run/names/Zelm_outctl -c list -o ..", 1, "",
            "Error: I don't recognize '/run/names/Zelm_outctl'\n"},
        {"/run/names/zelm_routctl", 1, "", "Error: I don't recognize '/run/names/zelm_routctl'\n"},
        {"/run/names/lt-zelm_chctl --help", 1, "", CHANNEL_USAGE},
    });
}

TEST_F(Messages, OfStatus)
{
    write_file(OUTPUTS + "teapot", "driver=x11\ndriver=teapot\n");
    write_file(OUTPUTS + "none", "# driver=x11\n");
    write_file(ROUTERS + "teapot", "driver=teapot\n");
    write_file(ROUTERS + "none", "driver=teapot\ndriver=\n");
    expect_all({
        {"zelm_outctl -c status -o a", 1, "Driver x11 process is stopped\n"},
        {"zelm_chctl -c status -o a", 1, "Driver a process is stopped\n"},
        {"zelm_inctl -c status -o a", 1, "Driver a process is stopped\n"},
        {"zelm_routectl -c status -o a", 1, "Driver knox_rsii process is stopped\n"},
        {"zelm_routectl -c status -o teapot", 1, "Driver teapot process is stopped\n"},
        {"zelm_routectl -c status -o none", 1, "Driver  process is stopped\n",
            "WARNING: Unable to identify driver\n"},
        {"zelm_outctl -c status -o teapot", 1, "Driver  process is stopped\n",
            "WARNING: Unrecognized driver teapot\nWARNING: Unable to identify driver\n"},
        {"zelm_outctl -c status -o none", 1, "Driver  process is stopped\n",
            "WARNING: Unrecognized driver \nWARNING: Unable to identify driver\n"},
        {"zelm_outctl -c status -o gone", 1, "",
            "/mnt/main/tv/outputs/gone config does not exist\nUnable to read config file\n"},
        {"zelm_routectl -c status -o gone", 1, "",
            "/mnt/main/tv/routing/gone config does not exist\nUnable to read config file\n"},
        {"zelm_chctl -c status -o channel1", 1, "Driver channel1 process is stopped\n",
            "No such output config /mnt/main/tv/rendermgr/channel1\n"},
        {"zelm_inctl -c status -o directory", 1, "Driver directory process is stopped\n",
            "No such output config /mnt/main/tv/inputs/directory\n"},
        {"zelm_chctl -c status -o .", 1, "Driver . process is stopped\n",
            "No such output config /mnt/main/tv/rendermgr/.\n"},
    });
}

TEST_F(Messages, OfStartAndStop)
{
    write_file(OUTPUTS + "teapot", "driver=teapot\n");
    write_file(INPUTS + "odd", "#! video passthru\n");
    write_file(INPUTS + "none", "\n#!video-passthru\n");
    write_file(ROUTERS + "none", "# driver=knox_rsii\n");
    write_file(OUTPUTS + "none", "title=One\n");
    const std::string unreadable = " config does not exist\nUnable to read config file\n";
    const std::string no_output = "/mnt/main/tv/outputs/gone" + unreadable;
    const std::string no_router = "/mnt/main/tv/routing/gone" + unreadable;
    const std::string no_channel = "/mnt/main/tv/rendermgr/channel1";
    const std::string odd_marker =
        "WARNING: unknown marker 'video passthru'. Did you mean #!video-passthru?\n";
    const std::string no_driver = "WARNING: Unable to identify driver\n";
    const std::string teapot = "WARNING: Unrecognized driver teapot\n" + no_driver;
    const std::string no_pid = "Did not identify PID of the driver\n";
    expect_all({
        {"zelm_outctl -c restart -o gone", 1, "", no_output + no_output},
        {"zelm_inctl -c start -o gone", 1, "", "/mnt/main/tv/inputs/gone" + unreadable},
        {"zelm_routectl -c start -o gone", 1, "", no_router},
        {"zelm_routectl -c restart -o gone", 1, "",
            "No such output config /mnt/main/tv/routing/gone\n" + no_router},
        {"zelm_inctl -c stop -o gone", 0, "", "No such output config /mnt/main/tv/inputs/gone\n"},
        {"zelm_chctl -c stop -o gone", 0, "", "No such output config /mnt/main/tv/rendermgr/gone\n"},
        // The child that was to become the driver has the last word, so all of it goes through a pipe.
        {"zelm_chctl -c start -o channel1 2>&1 | cat", 0,
            "No such output config " + no_channel + "\n" + no_channel +
                " config does not exist\nUnable to stat " + no_channel + "\n"},
        {"zelm_chctl -c start -o channel1 2>/dev/null"},
        {"zelm_outctl -c start -o none", 0, "", "WARNING: Unrecognized driver \n" + no_driver},
        {"zelm_outctl -c stop --force -o teapot", 0, "", teapot + no_pid},
        {"zelm_inctl -c start -o odd", 0, "", odd_marker + no_driver},
        {"zelm_outctl -c stop -o a --force", 0, "", no_pid},
        {"mkdir -p /mnt/main/tv/debug/output..teapot; zelm_outctl -c start -o teapot --debug 2>&1 | cat", 0,
            teapot + "Warning: I was unable to open debug output /mnt/main/tv/debug/output..teapot\n"},
    });
    expect_each({"zelm_outctl -c start -o gone", "zelm_outctl -c stop -o gone"}, {1, "", no_output});
    expect_each({"zelm_outctl -c start -o teapot", "zelm_outctl -c stop -o teapot",
                    "zelm_outctl -c start -o teapot --x11conflict 1"},
        {0, "", teapot});
    expect_each({"zelm_inctl -c start -o none", "zelm_routectl -c start -o none"}, {0, "", no_driver});
    expect_each({"zelm_inctl -c stop -o odd", "zelm_outctl -c stop -o a"}, {0});
    sh("rm -r /mnt/main/tv/outputs");
    for (const std::string items : {"all", "autostart"})
        expect_each({"zelm_outctl -c start -o " + items, "zelm_outctl -c stop -o " + items,
                        "zelm_outctl -c restart -o " + items},
            {1});
}

TEST_F(Messages, OfCreate)
{
    const std::string no_name = "You must specify what to name the output to create\n";
    expect_each({"zelm_outctl -c create", "zelm_chctl -c create -o all", "zelm_routectl -c create -o ''",
                    "zelm_inctl -c create -o autostart --type frob"},
        {1, "", no_name});
    expect_each({"zelm_inctl -c create -o b", "zelm_inctl -c create -o b --type video_passthru",
                    "zelm_inctl -c create -o b --type Video-Passthru"},
        {1, "", "Input creation needs a valid type.\n" + INPUT_USAGE});
    expect_each(
        {"zelm_outctl -c create -o a", "zelm_routectl -c create -o directory", "zelm_outctl -c create -o ."},
        {1, "Error: Already exists\n"});
    expect_all({
        {"zelm_chctl -c create -o ch7", 1, CHANNEL_NAME_ERROR, CHANNEL_NAME_HELP},
        {"zelm_routectl -c create -o .b.tmpup", 1, "Error: .b.tmpup is the name of a temporary file\n"},
        {"zelm_outctl -c create -o " + TOO_LONG_NAME, 1, "Failed to create input, File name too long\n"},
        {"rm -r /mnt/main/tv; ln -s /run/nowhere /mnt/main/tv; zelm_chctl -c create -o channel1", 1,
            "Failed to create dir, No such file or directory\n"},
        {"rm /mnt/main/tv; touch /mnt/main/tv; zelm_outctl -c create -o b", 1,
            "Error: Cannot stat dir, Not a directory\n"},
    });
}

class MessagesOfCloneAndRename : public Messages, public testing::WithParamInterface<const char*> {};
INSTANTIATE_TEST_SUITE_P(Both, MessagesOfCloneAndRename, testing::Values(" -c clone", " -c rename"));

TEST_P(MessagesOfCloneAndRename, AreTheSameForTheirNames)
{
    const std::string verb = GetParam();
    const std::string no_name = "You must specify what to name the output to rename\n";
    const std::string no_target = "You must specify what to rename to\n";
    expect_each({"zelm_outctl" + verb + " --to b", "zelm_chctl" + verb + " -o all --to b",
                    "zelm_inctl" + verb + " -o autostart --to b"},
        {1, "", no_name});
    expect_each({"zelm_outctl" + verb + " -o a", "zelm_chctl" + verb + " -o a --to ''",
                    "zelm_inctl" + verb + " -o a --to ..", "zelm_routectl" + verb + " -o a --to ../b"},
        {1, "", no_target});
    expect_each({"zelm_outctl" + verb + " -o gone --to gone", "zelm_chctl" + verb + " -o ch --to ch"},
        {0, "", "OK. Nothing to change\n"});
    expect_each({"zelm_routectl" + verb + " -o directory --to b", "zelm_outctl" + verb + " -o . --to b"},
        {1, "Error: filesystem entry not a file\n"});
    expect_each({"zelm_outctl" + verb + " -o gone --to b", "zelm_chctl" + verb + " -o gone --to channel1"},
        {1, "Error: No such output\n"});
    expect_all({
        {"zelm_chctl" + verb + " -o a --to channel0", 1, CHANNEL_NAME_ERROR, CHANNEL_NAME_HELP},
        {"zelm_outctl" + verb + " -o " + TOO_LONG_NAME + " --to b", 1, "Error: File name too long\n"},
        {"zelm_inctl" + verb + " -o a --to directory", 1, "Error: target name already exists\n"},
        {"zelm_outctl" + verb + " -o a --to " + TOO_LONG_NAME, 1, "Error: File name too long\n"},
        {"zelm_inctl" + verb + " -o a --to .b.metadir", 1, METADIR_NAME_ERROR},
    });
    EXPECT_EQ(read_file(OUTPUTS + "a"), "driver=x11\n");
    EXPECT_FALSE(exists(OUTPUTS + "b"));
}

TEST_F(Messages, OfDelete)
{
    const std::string no_name = "You must specify what to name the output to delete\n";
    expect_each(
        {"zelm_outctl -c delete", "zelm_chctl -c delete -o all", "zelm_routectl -c delete -o autostart"},
        {1, "", no_name});
    expect_all({
        {"zelm_inctl -c delete -o gone", 1, "Error: No such output\n"},
        {"zelm_outctl -c delete -o " + TOO_LONG_NAME, 1, "Error: File name too long\n"},
        {"zelm_chctl -c delete -o directory", 1, "Error: filesystem entry not a file\n"},
    });
}

TEST_F(Messages, OfSet)
{
    write_file(CHANNELS + ".b.metadir", "no directory");
    write_file(CHANNELS + "b", "b=1");
    const std::string no_output = "No such output config /mnt/main/tv/";
    expect_all({
        {"zelm_outctl -c set -o gone --set a=1", 0, "", no_output + "outputs/gone\n"},
        {"zelm_chctl -c set -o directory --set a=1", 0, "", no_output + "rendermgr/directory\n"},
        {"zelm_routectl -c set -o all --set a=1", 0, "", no_output + "routing/all\n"},
        {"zelm_routectl -c set -o " + TOO_LONG_NAME, 0, "", no_output + "routing/" + TOO_LONG_NAME + "\n"},
        {"zelm_chctl -c set -o b --set a=1", 0, "", "Unable to create temp\n"},
    });
    EXPECT_EQ(read_file(CHANNELS + "b"), "b=1");
}

TEST_F(Messages, OfAUserWithoutRights)
{
    SKIP_UNLESS(has_other_users());
    const std::string denied = ", Permission denied\n";
    write_file(OUTPUTS + "secret", "driver=x11\n");
    sh("chmod 600 /mnt/main/tv/outputs/secret; mkdir -m 777 /mnt/main/tv/outputs/.secret.metadir");
    expect_all({
        {AS_NOBODY + "zelm_outctl -c create -o b", 1, "Failed to create input" + denied},
        {AS_NOBODY + "zelm_outctl -c clone -o secret --to b", 1, "", "Cannot open source file" + denied},
        {AS_NOBODY + "zelm_outctl -c clone -o a --to b", 1, "", "Cannot open target file" + denied},
        {AS_NOBODY + "zelm_outctl -c rename -o a --to b", 1, "Error: Failed to rename output a" + denied,
            "WARNING: Failed to rename metadata dir for a" + denied},
        {AS_NOBODY + "zelm_outctl -c delete -o a", 1, "Error: Failed to remove a" + denied,
            "WARNING: failed to remove metadir for a" + denied},
        {AS_NOBODY + "zelm_outctl -c set -o secret --set a=1", 0, "", "Unable to open source\n"},
        {AS_NOBODY + "zelm_outctl -c set -o a --set a=1", 0, "", "Unable to create temp\n"},
        {"chmod 777 /mnt/main/tv/outputs /mnt/main/tv/outputs/.a.metadir; " + AS_NOBODY +
                "zelm_outctl -c set -o a --set b=1",
            0, "", "Warning: failed to preserve credentials\n"},
        {"cat /mnt/main/tv/outputs/a", 0, "#multiline\ndriver=x11\nb=1\n"},
        // A directory that can be passed through but not read: nothing happens, which is no failure.
        {"chmod 711 /mnt/main/tv/outputs; " + AS_NOBODY + "zelm_outctl -c clone -o a --to b"},
        {AS_NOBODY + "zelm_outctl -c rename -o a --to b"},
        {AS_NOBODY + "zelm_outctl -c delete -o a"},
        {AS_NOBODY + "zelm_outctl -c list", 1},
        {"chmod 700 /mnt/main/tv/outputs; " + AS_NOBODY + "zelm_outctl -c delete -o a", 1,
            "Error: Permission denied\n"},
        {"rm -r /mnt/main/tv/routing; " + AS_NOBODY + "zelm_routectl -c create -o b", 1,
            "Failed to create dir" + denied},
    });
}

TEST_F(Messages, OfADriverThatMayNotBecomeItsOwner)
{
    SKIP_UNLESS(has_other_users());
    const std::string debug_file = "/mnt/main/tv/debug/output.x11.a";
    const std::string start_as_nobody = AS_NOBODY + "zelm_outctl -c start -o a --debug";
    sh("mkdir -m 777 /mnt/main/tv/debug");
    expect_all({{start_as_nobody}});
    const std::string failure = "setgid() failed, Operation not permitted\n";
    EXPECT_TRUE(eventually([&] { return read_file(debug_file) == failure; })) << read_file(debug_file);
    expect_all({{"chgrp 65534 /mnt/main/tv/outputs/a; " + start_as_nobody}});
    const std::string both = failure + "setuid() failed, Operation not permitted\n";
    EXPECT_TRUE(eventually([&] { return read_file(debug_file) == both; })) << read_file(debug_file);
}

TEST_F(Messages, OfForksThatFail)
{
    SKIP_UNLESS(has_other_users());
    // The sanitizers' search for leaks would fork as well.
    const std::string forkless =
        std::string("ASAN_OPTIONS=$ASAN_OPTIONS:detect_leaks=0 ") + AS_NOBODY + "prlimit --nproc=1 ";
    sh("chmod 777 /mnt/main/tv/inputs");
    expect_all({
        {forkless + "zelm_outctl -c start -o a", 1, "", "fork failed\nUnable to start driver x11\n"},
        {forkless + "zelm_outctl -c stop -o a", 255, "", "fork failed\n"},
        {forkless + "zelm_outctl -c stop -o all", 0, "", "fork failed\n"},
        {forkless + "zelm_chctl -c restart -o a", 1, "",
            "fork failed\nfork failed\nUnable to start driver \n"},
        {forkless + "zelm_inctl -c create -o b --type trigger-rs232", 1, "", "can't make meta\n"},
        {forkless + "zelm_inctl -c clone -o a --to c", 1, "", "can't make meta\n"},
        {"cat /mnt/main/tv/inputs/b /mnt/main/tv/inputs/c", 0, "#!trigger-rs232\n#!video-passthru\n"},
    });
}

TEST_F(Messages, OfAFileThatIsInUse)
{
    const std::string file = OUTPUTS + "a";
    const Mount pinned("--bind " + file, file);
    SKIP_UNLESS(pinned);
    expect_all({
        {"zelm_outctl -c rename -o a --to b", 1,
            "Error: Failed to rename output a, Device or resource busy\n"},
        {"zelm_outctl -c delete -o a", 1, "Error: Failed to remove a, Device or resource busy\n"},
        {"zelm_outctl -c set -o a --set b=1", 0, "",
            "Unable to replace /mnt/main/tv/outputs/a, Device or resource busy\n"},
        {"ls -A /mnt/main/tv/outputs/.a.metadir"},
    });
    EXPECT_TRUE(exists(OUTPUTS + ".b.metadir")) << "it has moved and isn't moved back";
    EXPECT_EQ(read_file(file), "driver=x11\n");
}

TEST_F(Messages, ThatHaveNowhereToGo)
{
    expect_all({
        {"zelm_outctl -c list -o a >/dev/full", 1, "", "Unable to write output, No space left on device\n"},
        {"zelm_outctl -c status -o a >&-", 1},
        {"zelm_chctl -c start -o a; until zelm_chctl -c status -o a >/run/out; do sleep 0.1; done; "
         "zelm_chctl -c status -o a >/dev/full",
            0, "", "Unable to write output, No space left on device\n"},
    });
}

class CommandLine : public Appliance {};

TEST_F(CommandLine, TakesAnyNumberOfDashesAndTheLastOfEachSwitch)
{
    write_file(OUTPUTS + "a", "driver=x11\n");
    write_file(OUTPUTS + "-o", "driver=alsa\n");
    expect_all({
        {"zelm_outctl ---c frob --o gone -c status ----o a", 1, "Driver x11 process is stopped\n"},
        {"zelm_outctl -c list -name-only --name-only", 0, "-o\na\n"},
        // A value may look like a switch.
        {"zelm_outctl -c status -o -o", 1, "Driver alsa process is stopped\n"},
        {"zelm_outctl -c clone -o a --to x --to -c --timeout -1 && ls /mnt/main/tv/outputs", 0,
            "-c\n-o\na\n"},
    });
}

}  // namespace
