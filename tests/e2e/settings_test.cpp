// The settings file: how it is read, how "set" rewrites it, and that no failure loses anything of it.
#include "e2e/sandbox_testing.hpp"

#include <chrono>
#include <regex>

using namespace std::string_literals;

namespace {

const std::string METADIR_A = OUTPUTS + ".a.metadir";

class Settings : public Appliance {
protected:
    // The settings of an item as a listing shows them, without what the tool adds.
    static std::string listed(const std::string& tool, const std::string& directory, const std::string& file)
    {
        write_file(directory + "a", file);
        return sh(tool + " -c list --no-manifest -o a | grep -avP '\\t(running|uptime)=|^a{$|^}$'").out;
    }

    // The file after a set that must succeed silently.
    static std::string after_set(const std::string& file, const std::string& switches)
    {
        write_file(FILE_A, file);
        EXPECT_EQ(output_of("zelm_outctl -c set -o a " + switches), "");
        EXPECT_FALSE(exists(METADIR_A + "/.tmpup")) << switches;
        return read_file(FILE_A);
    }

    // A set that can't change the file says so in one line, and the file stays as it was.
    static void expect_failing_set(const std::string& command_line, const std::string& message)
    {
        const std::string before = read_file(FILE_A);
        expect_all({{command_line, 0, "", message + "\n"}});
        EXPECT_EQ(read_file(FILE_A), before) << command_line;
        EXPECT_FALSE(exists(METADIR_A + "/.tmpup")) << command_line;
    }

    static void leave_in_metadir(const std::string& commands)
    {
        sh("mkdir -p " + METADIR_A + "; cd " + METADIR_A + "; " + commands);
    }
};

TEST_F(Settings, AreReadAsTheyAreWritten)
{
    const std::string long_line = "k=" + std::string(1021, 'x');
    const struct {
        const char* what;
        std::string file;
        std::string listing;
    } ROWS[] = {
        {"an empty file", "", "\t?\tdriver=\n"},
        {"blanks count", "driver=x11\na = b\n", "\t=\ta = b\n\t=\tdriver=x11\n"},
        {"further = belong to the value", "driver=d\nk=a=b=\n", "\t=\tdriver=d\n\t=\tk=a=b=\n"},
        {"no line feed at the end", "driver=x11", "\t=\tdriver=x11\n"},
        {"lines that set nothing", "\n# k=1\nnonsense\ndriver=d\n\n", "\t=\tdriver=d\n"},
        {"an empty key", "driver=d\n=x\n", "\t=\t=x\n\t=\tdriver=d\n"},
        {"the last of repeated lines", "driver=d\nk=1\nk=2\n", "\t=\tdriver=d\n\t=\tk=2\n"},
        {"several lines", "#multiline\ndriver=d\nk=1\nk=2\nk=3\n",
            "\t=\tdriver=d\n\t<..\tk=1\n\t...\tk=2\n\t=\tk=3\n"},
        {"the mark holds from where it stands", "driver=d\nk=1\nk=2\n#multiline\nk=3\n",
            "\t=\tdriver=d\n\t<..\tk=2\n\t=\tk=3\n"},
        {"comments don't part lines", "#multiline\ndriver=d\nk=1\n# c\n\nx\nk=2\n",
            "\t=\tdriver=d\n\t<..\tk=1\n\t=\tk=2\n"},
        {"another key parts lines", "#multiline\nk=1\ndriver=d\nk=2\n", "\t=\tdriver=d\n\t=\tk=2\n"},
        {"no value begins with a line feed", "#multiline\ndriver=d\nk=\nk=2\n", "\t=\tdriver=d\n\t=\tk=2\n"},
        {"but it may end in one", "#multiline\ndriver=d\nk=2\nk=\n", "\t=\tdriver=d\n\t<..\tk=2\n\t=\tk=\n"},
        {"a mark with a blank is a comment", "#multiline \ndriver=d\nk=1\nk=2\n",
            "\t=\tdriver=d\n\t=\tk=2\n"},
        {"bytes of any kind", "driver=d\nk\x01=\xff\0\t\r\n"s, "\t=\tdriver=d\n\t=\tk\x01=\xff\0\t\r\n"s},
        {"a line is at most 1022 bytes", "driver=d\n" + long_line + "y=z\n",
            "\t=\tdriver=d\n\t=\tk=" + std::string(1020, 'x') + "\n\t=\txy=z\n"},
        {"input markers mean nothing here", "#!video-passthru\n", "\t?\tdriver=\n"},
    };
    for (const auto& row : ROWS)
        EXPECT_EQ(listed("zelm_outctl", OUTPUTS, row.file), row.listing) << row.what;
    EXPECT_EQ(listed("zelm_routectl", ROUTERS, "a=1\n"), "\t=\ta=1\n\t?\tdriver=\n");
    EXPECT_EQ(
        sh("echo a=1 >/mnt/main/tv/rendermgr/channel1; zelm_chctl -c list --no-manifest | grep driver").out,
        "");
}

TEST_F(Settings, OfAnInputNameTheDriverInTheFirstLine)
{
    const struct {
        const char* file;
        const char* listing;
    } ROWS[] = {
        {"#!video-passthru\n", "\t*\tdriver=video_passthru\n"},
        {"#!  Video-Passthru-V2\nk=1\n", "\t*\tdriver=video_passthru_v2\n\t=\tk=1\n"},
        {"#!TRIGGER-RS232", "\t*\tdriver=trigger_rs232\n"},
        {"#!trigger-rs232\ndriver=other\n", "\t=\tdriver=other\n"},
        {"#!video-passthru x\nk=1\n", "\t=\tk=1\n"},
        {"k=1\n#!video-passthru\n", "\t=\tk=1\n"},
        {"# video-passthru\nk=1\n", "\t=\tk=1\n"},
        {"", ""},
    };
    for (const auto& row : ROWS)
        EXPECT_EQ(listed("zelm_inctl", INPUTS, row.file), row.listing) << row.file;
}

TEST_F(Settings, AreRewrittenLineByLine)
{
    const std::string piece = "k=" + std::string(1020, 'x');
    const struct {
        const char* what;
        std::string file;
        const char* switches;
        std::string result;
    } ROWS[] = {
        {"the new value comes last", "a=0\nb=2\n", "--set a=1", "#multiline\nb=2\na=1\n"},
        {"also under the mark", "#multiline\na=0\nb=2\n", "--set a=1", "#multiline\nb=2\na=1\n"},
        {"an empty value removes its key", "a=0\nb=2\n", "--set a=", "#multiline\nb=2\n"},
        {"and so does a bare key", "a=0\nb=2\na=4\n", "--set a", "#multiline\nb=2\n"},
        {"values hold =", "", "--set a=b=c", "a=b=c\n"},
        {"a key needs a name", "b=2\n", "--set =x", "#multiline\nb=2\n"},
        {"live commands aren't stored", "b=2\n", "--set +go=1 --set -- --set -x=1 --set '&y=1' --set c=3",
            "#multiline\nb=2\nc=3\n"},
        {"nor kept", "+go=1\n-x=1\n&y\nb=2\n", "", "#multiline\nb=2\n"},
        {"a live command is no name of a key", "go=1\n", "--set +go=2", "#multiline\ngo=1\n"},
        {"comments stay ahead of the mark, blank lines go", "# one\n\n#two\nb=2\n# three\nc=3\n", "--set a=1",
            "# one\n#two\n#multiline\n# three\nb=2\nc=3\na=1\n"},
        {"under the mark all lines keep their places", "#multiline\n# one\nb=2\n# two\nodd\nc=3\n",
            "--set b=4", "# one\n#multiline\n# two\nodd\nc=3\nb=4\n"},
        {"the mark comes late", "b=1\n#multiline\nc=3\nb=2\n", "", "#multiline\nc=3\nb=2\nb=1\n"},
        {"lines that set nothing stay", "odd\nb=2\n", "--set odd=1", "#multiline\nodd\nb=2\nodd=1\n"},
        {"without the mark repeated keys fold to the last", "b=1\nc=2\nb=3\nd=4\nc=5\n", "",
            "#multiline\nb=3\nc=5\nd=4\n"},
        {"under it they stay", "#multiline\nb=1\nc=2\nb=3\n", "", "#multiline\nb=1\nc=2\nb=3\n"},
        {"empty values vanish", "b=\nc=2\n", "", "#multiline\nc=2\n"},
        {"and so does a last empty line", "#multiline\nb=1\nb=\nc=2\n", "", "#multiline\nb=1\nc=2\n"},
        {"all lines of a key are replaced", "#multiline\nb=1\nb=2\nc=3\nb=4\n", "--set b=5",
            "#multiline\nc=3\nb=5\n"},
        {"a value of several lines", "b=2\n", "--set \"$(printf 'a=1\\n\\n2')\"",
            "#multiline\nb=2\na=1\na=\na=2\n"},
        {"one that ends in a line feed", "b=2\n", "--set 'a=1\n'", "#multiline\nb=2\na=1\na=\n"},
        {"a key set twice", "a=0\n", "--set a=1 --set b=2 --set a=3", "#multiline\na=1\nb=2\na=3\n"},
        {"json is a key like any other", "b=2\n", "--set 'json={\"b\":1}'",
            "#multiline\nb=2\njson={\"b\":1}\n"},
        {"the empty key of a file", "=x\nb=2\n", "--set =y", "#multiline\n=x\nb=2\n"},
        {"blanks belong to keys", "a =0\na=1\n", "--set 'a =2'", "#multiline\na=1\na =2\n"},
        {"no setting line, no mark", "# only\n#multiline\n\n", "--set a=1", "# only\na=1\n"},
        {"an empty file", "", "", ""},
        {"no line feed at the end", "a=1\nb=2", "--set a=3", "#multiline\nb=2\na=3\n"},
        {"bytes of any kind", "#\xff\0#\nb\xfe=\x01\0\r\t\n"s, "--set a=\xe9",
            "#\xff\0#\n#multiline\nb\xfe=\x01\0\r\t\na=\xe9\n"s},
        {"a line is at most 1022 bytes", "#multiline\n" + piece + "tail\nb=2\n", "--set a=1",
            "#multiline\n" + piece + "\ntail\nb=2\na=1\n"},
        {"a line of 1022 bytes stays whole", piece + "\nb=2\n", "", "#multiline\n" + piece + "\nb=2\n"},
        {"switches for documents that aren't there", "b=2\n", "--set a=1 --json-from /no/such/file",
            "#multiline\nb=2\na=1\n"},
    };
    for (const auto& row : ROWS)
        EXPECT_EQ(after_set(row.file, row.switches), row.result) << row.what;
    for (const std::string& directory : {CHANNELS, INPUTS, ROUTERS})
        write_file(directory + "a", "#!video-passthru\nb=2\n");
    for (const char* tool : {"zelm_chctl", "zelm_inctl", "zelm_routectl"})
        EXPECT_EQ(output_of(tool + " -c set -o a --set a=1"s), "");
    for (const std::string& directory : {CHANNELS, INPUTS, ROUTERS})
        EXPECT_EQ(read_file(directory + "a"), "#!video-passthru\n#multiline\nb=2\na=1\n") << directory;
}

TEST_F(Settings, KeepTheirOwnerWhileTheUmaskGivesTheMode)
{
    write_file(FILE_A, "b=2\n");
    sh("chmod 4711 /mnt/main/tv/outputs/a");
    const std::string owner = has_other_users() ? "1234 1235" : output_of("printf '%s %s' $(id -u) $(id -g)");
    sh("chown $(echo " + owner + " | tr ' ' :) /mnt/main/tv/outputs/a");
    expect_all({
        {"umask 027; zelm_outctl -c set -o a --set a=1; stat -c '%a %u %g' /mnt/main/tv/outputs/a", 0,
            "640 " + owner + "\n"},
        {"umask 0; zelm_outctl -c set -o a; stat -c '%a %u %g' /mnt/main/tv/outputs/a", 0,
            "666 " + owner + "\n"},
        {"stat -c %a /mnt/main/tv/outputs/.a.metadir", 0, "750\n"},
    });
}

TEST_F(Settings, OfARunningItemReachTheDriverAndTheFile)
{
    write_file(FILE_A, "driver=x11\ntitle=Old\nalways on top=1\nsim flagged packets=3\n");
    start("zelm_outctl", "a");
    const std::string list = "zelm_outctl -c list --no-manifest -o a | grep -P '\\t(title|always on top|last "
                             "command|json|wall|sim flagged packets)='";
    expect_all({
        {"zelm_outctl -c set -o a --set title=New --set +go=5 --set 'always on top=' --set 'json={\"a\":1}' "
         "--set 'wall=1\n2'"},
        {list, 0,
            "\t*\tjson={\"a\":1}\n\t*\tlast command=+go=5\n\t*\tsim flagged packets=3\n\t*\ttitle=New\n"
            "\t<..\twall=1\n\t*\twall=2\n"},
        {"cat /mnt/main/tv/outputs/a", 0,
            "#multiline\ndriver=x11\nsim flagged packets=3\ntitle=New\njson={\"a\":1}\nwall=1\nwall=2\n"},
        {"zelm_outctl -c set -o a --set '&page=' --set title=1 --set title=2"},
        {list + " | grep -P '\\t(title|last command)='", 0, "\t*\tlast command=&page=\n\t*\ttitle=2\n"},
    });
}

TEST_F(Settings, AreStoredEvenIfTheDriverHangsUpOrHasGone)
{
    const auto begin = std::chrono::steady_clock::now();
    for (const char* sim : {"hang up", "hang up mid"}) {
        write_file(FILE_A, "driver=x11\nsim "s + sim + "=1\n");
        sh("zelm_outctl -c start -o a");
        EXPECT_TRUE(eventually([] { return sh("zelm_outctl -c status -o a").status == 0; }));
        EXPECT_EQ(output_of("zelm_outctl -c set -o a --set a=1 --set b=2 --set c=3"), "") << sim;
        EXPECT_EQ(read_file(FILE_A), "#multiline\ndriver=x11\nsim "s + sim + "=1\na=1\nb=2\nc=3\n");
        sh("zelm_outctl -c stop -o a");
    }
    write_file(FILE_A, "driver=x11\nsim leave socket=1\n");
    start("zelm_outctl", "a");
    expect_all({
        {"zelm_outctl -c stop -o a; test -S /mnt/main/tv/outputs/.a.metadir/.media.item.active.socket"},
        {"zelm_outctl -c set -o a --set a=1; cat /mnt/main/tv/outputs/a", 0,
            "#multiline\ndriver=x11\nsim leave socket=1\na=1\n"},
        {"cd /mnt/main/tv/outputs/.a.metadir; rm .media.item.active.socket; touch .media.item.active.socket; "
         "zelm_outctl -c set -o a --set b=1; cat /mnt/main/tv/outputs/a",
            0, "#multiline\ndriver=x11\nsim leave socket=1\na=1\nb=1\n"},
    });
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(15));
}

TEST_F(Settings, TooLargeForTheSocketAreStoredAndNoAnswerIsWaitedFor)
{
    SKIP_UNLESS(sees_other_users());
    write_file(FILE_A, "driver=x11\n");
    sh("chmod 777 /mnt/main/tv/outputs; chown 65534:65534 /mnt/main/tv/outputs/a");
    start("zelm_outctl", "a");
    write_file(
        "/run/big.json", R"({"x11":{"title":")" + std::string(8000000, 't') + R"(","keepAbove":true}})");
    const std::string nobody = AS_NOBODY;
    expect_all({
        {nobody + "timeout 10 zelm_outctl -c set -o a --json-driver x11 --json-from /run/big.json"},
        {"zelm_outctl -c list --no-manifest -o a | grep 'always on top='", 0, "\t*\talways on top=1\n"},
        {"tail -c 25 /mnt/main/tv/outputs/a", 0, "tttttttt\nalways on top=1\n"},
    });
}

TEST_F(Settings, AFailedSetLeavesTheFileAsItWas)
{
    const Mount disk("-t tmpfs -o size=16k,nr_inodes=6 tmpfs", OUTPUTS);
    SKIP_UNLESS(disk);
    const std::string set = "zelm_outctl -c set -o a --set a=1";
    const std::string no_space = "Unable to replace /mnt/main/tv/outputs/a, No space left on device";
    write_file(FILE_A, "# one\nb=2\n" + std::string(9000, 'x') + "\nend=1\n");
    expect_failing_set(set, no_space);
    sh("cat /dev/zero >/mnt/main/tv/outputs/full");
    expect_failing_set(set, no_space);
    write_file(FILE_A, "b=2\n");
    sh("cat /dev/zero >/mnt/main/tv/outputs/full");
    expect_failing_set(set, no_space);
    sh("cd /mnt/main/tv/outputs; rm full; for i in 1 2 3 4 5 6; do touch $i; done");
    expect_failing_set(set, "Unable to create temp");
    sh("cd /mnt/main/tv/outputs; rm 1 2 3 4 5 6");
    {
        // A metadir on another disk: the file is written whole but can't be moved.
        const Mount other("-t tmpfs tmpfs", METADIR_A);
        expect_failing_set(set, "Unable to replace /mnt/main/tv/outputs/a, Invalid cross-device link");
    }
    EXPECT_EQ(output_of(set), "");
    EXPECT_EQ(read_file(FILE_A), "#multiline\nb=2\na=1\n") << "once there is room again";
}

TEST_F(Settings, WhatADeadRunLeftIsNoObstacle)
{
    const struct {
        const char* left;
        const char* message;
        const char* result;
    } ROWS[] = {
        {"printf stale=1 >.tmpup; chmod 000 .tmpup", "", "#multiline\nb=2\na=1\n"},
        {"ln -s /run/victim .tmpup", "", "#multiline\nb=2\na=1\n"},
        {"ln -s ../a .tmpup", "", "#multiline\nb=2\na=1\n"},
        {"ln ../a .tmpup", "", "#multiline\nb=2\na=1\n"},
        {"mkdir .tmpup", "Unable to create temp\n", "b=2\n"},
        {"printf stale=1 >../.a.tmpup; chmod 000 ../.a.tmpup", "", "#multiline\nb=2\na=1\n"},
        {"ln -s /run/victim ../.a.tmpup", "", "#multiline\nb=2\na=1\n"},
        {"ln ../a ../.a.tmpup", "", "#multiline\nb=2\na=1\n"},
        {"mkdir ../.a.tmpup", "Unable to replace /mnt/main/tv/outputs/a, Is a directory\n", "b=2\n"},
    };
    write_file("/run/victim", "mine");
    for (const auto& row : ROWS) {
        write_file(FILE_A, "b=2\n");
        leave_in_metadir(row.left);
        expect_all({{"zelm_outctl -c set -o a --set a=1", 0, "", row.message}});
        EXPECT_EQ(read_file(FILE_A), row.result) << row.left;
        EXPECT_EQ(output_of("cd " + METADIR_A + "; find .. -name '*.tmpup' ! -type d; rm -rf .tmpup"), "")
            << row.left;
        EXPECT_EQ(output_of("stat -c '%F %h' " + FILE_A), "regular file 1\n") << row.left;
    }
    EXPECT_EQ(read_file("/run/victim"), "mine");
}

TEST_F(Settings, TwentyRunsAtOnceLeaveAWholeFile)
{
    std::string kept = "#multiline\n";
    for (int i = 0; i < 100; ++i)
        kept += "kept " + std::to_string(i) + "=" + std::string(500, 'k') + "\n";
    write_file(FILE_A, kept);
    EXPECT_EQ(
        output_of("for i in $(seq 20); do zelm_outctl -c set -o a --set new=1 --set n$i=$i & done; wait; "
                  "ls -A " +
                  METADIR_A),
        "");
    const std::string file = read_file(FILE_A);
    EXPECT_EQ(file.substr(0, kept.size()), kept);
    // A run that waited for another works on what it had opened, so not all new keys need be there.
    const std::regex added("(n([0-9]+)=\\2\n)*new=1\nn([0-9]+)=\\3\n");
    EXPECT_TRUE(std::regex_match(file.substr(kept.size()), added)) << file.substr(kept.size());
}

}  // namespace
