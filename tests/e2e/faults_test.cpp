// What forced faults leave: every command that changes files is killed before each of its system calls, and
// each of its calls fails in turn.
#include "e2e/sandbox_testing.hpp"

#include <filesystem>
#include <map>
#include <sstream>

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
        SKIP_UNLESS(HeldRun::is_possible());
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

    static Outcome run_with(const Command& command, const std::string& strace_switches)
    {
        prepare(command);
        return sh(
            "strace -qq -o /run/trace --trace=%file,%desc " + strace_switches + " " + command.command_line);
    }

    static bool exists_in_trace(const std::string& text)
    {
        return read_file("/run/trace").find(text) != std::string::npos;
    }

    // How often a run makes each of the calls that touch files.
    static std::map<std::string, int> calls_of(const Command& command)
    {
        std::map<std::string, int> calls;
        run_with(command, "");
        std::istringstream trace(read_file("/run/trace"));
        for (std::string line; std::getline(trace, line);)
            if (std::islower(line.front()) != 0)
                ++calls[line.substr(0, line.find('('))];
        calls.erase("execve");  // of the tool itself
        EXPECT_GT(calls["openat"], 1) << command.name;
        return calls;
    }

    // Runs each command anew for each of these calls, which then has the fault.
    using Check = std::function<void(const Command&, const Outcome&)>;
    static void for_each_call(const std::string& fault, const Check& check)
    {
        for (const Command& command : COMMANDS)
            for (const auto& [name, count] : calls_of(command))
                for (int n = 1; n <= count; ++n) {
                    const Outcome outcome =
                        run_with(command, "--inject=" + name + ":" + fault + ":when=" + std::to_string(n));
                    SCOPED_TRACE(command.name + ("\n" + read_file("/run/trace")));
                    check(command, outcome);
                    EXPECT_FALSE(exists(directory_of(command) + ".a.metadir/.tmpup"));
                }
    }
};

TEST_F(Faults, AKilledRunLeavesTheOldItemsOrTheNewOnes)
{
    for_each_call("signal=SIGKILL", [](const Command& command, const Outcome& outcome) {
        const std::string& directory = directory_of(command);
        Files left = files(directory);
        left.erase(".a.tmpup");  // hidden, and whatever comes next takes it away
        EXPECT_EQ(outcome.status, 128 + 9);
        EXPECT_TRUE(left == command.before || left == command.after);
        EXPECT_EQ(sh("cd " + directory + "; " + command.again + command.command_line).status, 0);
        EXPECT_EQ(files(directory), command.after);
    });
}

// Six items: two change, of which one gets several lines, one comes, one goes, one stays, and one loses a
// key.
TEST_F(Faults, AKilledApplyLeavesEachItemOldOrNewAndTheNextOneEndsRight)
{
    const Command command{"apply",
        "for i in a c d e f; do printf '#multiline\\nb=2\\ni=%s\\n' $i >$i; done; mkdir .c.metadir",
        "zelmctl apply --exact --prune /run/six.json",
        {{"a", "#multiline\nb=2\ni=a\n"}, {"c", "#multiline\nb=2\ni=c\n"}, {"d", "#multiline\nb=2\ni=d\n"},
            {"e", "#multiline\nb=2\ni=e\n"}, {"f", "#multiline\nb=2\ni=f\n"}},
        {{"a", "#multiline\ni=a\nb=3\n"}, {"b", "#multiline\nb=2\n"},
            {"d", "#multiline\nb=2\ni=d\ni=\ni=e\n"}, {"e", "#multiline\nb=2\ni=e\n"},
            {"f", "#multiline\nb=2\n"}}};
    write_file("/run/six.json",
        R"({"outputs": {"a": {"settings": {"b": "3", "i": "a"}}, "b": {"settings": {"b": "2"}},
        "d": {"settings": {"b": "2", "i": ["d", "", "e"]}}, "e": {"settings": {"b": "2", "i": "e"}},
        "f": {"settings": {"b": "2"}}}})");
    const auto of = [](const Files& items, const std::string& name) {
        return items.contains(name) ? items.at(name) : "absent";
    };
    for (const auto& [call, count] : calls_of(command))
        for (int n = 1; n <= count; ++n) {
            run_with(command, "--inject=" + call + ":signal=SIGKILL:when=" + std::to_string(n));
            const Files left = files(OUTPUTS);
            for (const std::string name : {"a", "b", "c", "d", "e", "f"})
                EXPECT_TRUE(
                    of(left, name) == of(command.before, name) || of(left, name) == of(command.after, name))
                    << name << "\n"
                    << read_file("/run/trace");
            EXPECT_EQ(sh(command.command_line).status, 0);
            Files after = files(OUTPUTS);
            std::erase_if(after, [](const auto& file) { return file.first.starts_with('.'); });
            EXPECT_EQ(after, command.after) << read_file("/run/trace");
        }
}

TEST_F(Faults, AFailingCallIsToldOrDoesNotMatter)
{
    for_each_call("error=EIO", [](const Command& command, const Outcome& outcome) {
        const Files left = files(directory_of(command));
        EXPECT_TRUE(left == command.before || left == command.after);
        EXPECT_TRUE(exists_in_trace("INJECTED"));
        // Of an item directory that can't be opened nothing is said.
        EXPECT_TRUE(
            left == command.after || !(outcome.out + outcome.err).empty() ||
            sh("grep -qE '/outputs\", O_RDONLY\\|(O_LARGEFILE\\|)?O_CLOEXEC\\|O_DIRECTORY\\) = -1 EIO' "
               "/run/trace")
                    .status == 0);
    });
}

TEST_F(Faults, FileSystemsThatCannotExchangeOrHaveNoNamelessFilesWillDo)
{
    for (const Command& command : COMMANDS) {
        run_with(command, "");
        const std::string nameless = sh("grep openat /run/trace | grep -n O_TMPFILE | cut -d: -f1").out;
        const std::string named = "openat:error=EOPNOTSUPP:when=" +
                                  (nameless.empty() ? "99" : nameless.substr(0, nameless.find('\n')));
        for (const std::string& missing : {std::string("renameat2:error=EINVAL"), named}) {
            const Outcome outcome = run_with(command, "--inject=" + missing);
            EXPECT_EQ(outcome.out + outcome.err, "") << command.name << missing;
            EXPECT_EQ(files(directory_of(command)), command.after) << command.name << missing;
        }
        run_with(command, "--inject=" + named + " --inject=fsync:error=EIO");
        EXPECT_EQ(files(directory_of(command)), nameless.empty() ? command.after : command.before)
            << command.name;
    }
}

TEST_F(Faults, WhatTheKernelRefusesIsDoneInAnotherWay)
{
    for (const Command& command : COMMANDS)
        for (const std::string refused : {"renameat2:error=EPERM", "renameat2:error=EOPNOTSUPP",
                 "linkat:error=EPERM", "linkat:error=EOPNOTSUPP", "close_range:error=ENOSYS"}) {
            prepare(command);
            sh("rm -f /run/zelm_startitem.log");
            const Outcome outcome =
                sh("strace -f -qq -o /dev/null --inject=" + refused + " " + command.command_line + " 7<&0");
            EXPECT_EQ(outcome.out + outcome.err, "") << command.name << refused;
            EXPECT_EQ(files(directory_of(command)), command.after) << command.name << refused;
            EXPECT_EQ(read_file("/run/zelm_startitem.log").find("with descriptor"), std::string::npos);
        }
}

TEST_F(Faults, WhatIsNewIsOnDiskBeforeItHasItsNameAndTheNameAfterwards)
{
    for (const auto& [command, calls] :
        {std::pair(COMMANDS[0], "unlinkat fsync linkat renameat2 unlinkat fsync "),
            std::pair(COMMANDS[1], "fsync linkat fsync "), std::pair(COMMANDS[2], "fsync linkat fsync "),
            std::pair(COMMANDS[3], "renameat unlinkat renameat fsync "),
            std::pair(COMMANDS[4],
                "unlinkat unlinkat unlinkat unlinkat unlinkat unlinkat unlinkat unlinkat fsync ")}) {
        run_with(command, "");
        EXPECT_EQ(
            output_of("grep -oE '^(fsync|linkat|renameat2?|unlinkat)' /run/trace | tr '\\n' ' '"), calls);
    }
}

}  // namespace
