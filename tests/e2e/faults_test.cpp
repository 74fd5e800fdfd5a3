// What forced faults leave: every command that changes files is killed before each of its system calls, and
// each of its calls fails in turn.
#include "e2e/sandbox_testing.hpp"

#include <filesystem>
#include <map>

namespace {

using Files = std::map<std::string, std::string>;

struct Command {
    const char* name;
    std::string prepare;
    std::string command_line;
    Files before;
    Files after;
    std::string again = {};  // what completes the change after a run that was killed, if not the same
};

const std::string MARKED = "#multiline\nb=2\na=1\n";
const Command COMMANDS[] = {
    {"set", "echo b=2 >a", "zelm_outctl -c set -o a --set a=1", {{"a", "b=2\n"}}, {{"a", MARKED}}},
    {"clone", "echo b=2 >a", "zelm_outctl -c clone -o a --to c", {{"a", "b=2\n"}},
        {{"a", "b=2\n"}, {"c", "b=2\n"}}, "test -e c || "},
    {"create", "", "zelm_inctl -c create -o c --type trigger-rs232", {}, {{"c", "#!trigger-rs232\n"}},
        "test -e c || "},
    {"rename", "echo b=2 >a; mkdir .a.metadir", "zelm_outctl -c rename -o a --to c", {{"a", "b=2\n"}},
        {{"c", "b=2\n"}}, "test -e c || "},
    {"delete", "echo b=2 >a; mkdir .a.metadir; touch .a.metadir/metadata", "zelm_outctl -c delete -o a",
        {{"a", "b=2\n"}}, {}, "test ! -e a || "},
};

class Faults : public Appliance {
protected:
    void SetUp() override
    {
        Appliance::SetUp();
#ifdef __SANITIZE_ADDRESS__
        GTEST_SKIP() << "the sanitizers make calls of their own, and die of faults";
#endif
        if (sh("strace -o /dev/null true").status != 0)
            GTEST_SKIP() << "processes can't be traced here";
    }

    static const std::string& directory_of(const Command& command)
    {
        return command.command_line.starts_with("zelm_inctl") ? INPUTS : OUTPUTS;
    }

    static void prepare(const Command& command)
    {
        sh("cd " + directory_of(command) + " && rm -rf * .[a-z]*; " + command.prepare);
    }

    // All that lies beside the items too, but for metadirs.
    static Files files(const std::string& directory)
    {
        Files found;
        for (const auto& entry : std::filesystem::directory_iterator(directory))
            if (!entry.is_directory())
                found[entry.path().filename()] = read_file(entry.path());
        return found;
    }

    // Runs the command with the fault on the n-th of its system calls. False once it has none so late.
    static bool run(const Command& command, const std::string& fault, int n, Outcome& outcome)
    {
        prepare(command);
        outcome = sh("strace -qq -o /run/trace --inject=all:" + fault + ":when=" + std::to_string(n) + " " +
                     command.command_line);
        return sh("grep -qE 'INJECTED|killed by' /run/trace").status == 0;
    }
};

TEST_F(Faults, AKilledRunLeavesTheOldItemsOrTheNewOnes)
{
    for (const Command& command : COMMANDS) {
        const std::string& directory = directory_of(command);
        Outcome outcome;
        int n = 1;
        for (; run(command, "signal=SIGKILL", n, outcome); ++n) {
            const Files left = files(directory);
            EXPECT_TRUE(left == command.before || left == command.after) << command.name << n;
            EXPECT_EQ(sh("cd " + directory + "; " + command.again + command.command_line).err, "")
                << command.name << n;
            EXPECT_EQ(files(directory), command.after) << command.name << n;
            EXPECT_FALSE(exists(directory + ".a.metadir/.tmpup")) << command.name << n;
        }
        EXPECT_GT(n, 20) << command.name;
    }
}

TEST_F(Faults, AFailingCallIsToldOrDoesNotMatter)
{
    for (const Command& command : COMMANDS) {
        const std::string& directory = directory_of(command);
        Outcome outcome;
        for (int n = 2; run(command, "error=EIO", n, outcome); ++n) {
            const Files left = files(directory);
            EXPECT_TRUE(left == command.before || left == command.after) << command.name << n;
            EXPECT_TRUE(left == command.after || outcome.status != 0 || !outcome.err.empty())
                << command.name << n << read_file("/run/trace");
            EXPECT_FALSE(exists(directory + ".a.metadir/.tmpup")) << command.name << n;
        }
    }
}

TEST_F(Faults, FileSystemsThatCannotExchangeOrHaveNoNamelessFilesWillDo)
{
    for (const Command& command : COMMANDS) {
        Outcome outcome;
        run(command, "delay_enter=0", 1, outcome);
        const std::string nameless = sh("grep openat /run/trace | grep -n O_TMPFILE | cut -d: -f1").out;
        const std::string named = "openat:error=EOPNOTSUPP:when=" +
                                  (nameless.empty() ? "99" : nameless.substr(0, nameless.find('\n')));
        for (const std::string& missing : {std::string("renameat2:error=EINVAL"), named}) {
            prepare(command);
            outcome = sh("strace -qq -o /run/trace --inject=" + missing + " " + command.command_line);
            EXPECT_EQ(outcome.out + outcome.err, "") << command.name << missing;
            EXPECT_EQ(files(directory_of(command)), command.after) << command.name << missing;
        }
        prepare(command);
        sh("strace -qq -o /run/trace --inject=" + named + " --inject=fsync:error=EIO " +
            command.command_line);
        EXPECT_EQ(files(directory_of(command)), nameless.empty() ? command.after : command.before)
            << command.name;
    }
}

TEST_F(Faults, WhatIsNewIsOnDiskBeforeItHasItsNameAndTheNameAfterwards)
{
    for (const auto& [command, calls] : {std::pair(COMMANDS[0], "fsync linkat renameat2 unlinkat fsync "),
             std::pair(COMMANDS[1], "fsync linkat fsync "), std::pair(COMMANDS[2], "fsync linkat fsync ")}) {
        Outcome outcome;
        run(command, "delay_enter=0", 1, outcome);
        EXPECT_EQ(
            output_of("grep -oE '^(fsync|linkat|renameat2|unlinkat)' /run/trace | tr '\\n' ' '"), calls);
    }
}

}  // namespace
