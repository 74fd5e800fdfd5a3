// The exact text of a listing: settings, manifest, process state and file types side by side.
#include <csignal>
#include <fcntl.h>
#include <filesystem>

#include "e2e/sandbox_testing.hpp"

namespace fs = std::filesystem;

namespace {

constexpr char MANIFEST[] = "/usr/share/tavorn4/arglist/zelm_sample.al";

class Listing : public Appliance {
protected:
    void TearDown() override
    {
        fs::remove(MANIFEST);
        Appliance::TearDown();
    }

    static void write_manifest()
    {
        write_file(MANIFEST,
            "# A comment, and keys of any kind.\n\n[]\ndefault=first = line\n[odd ] key]\n"
            "[title]\ndefault=Untitled\ndescription=What it is called,\ndescription=and more\n"
            "ui={\"json_type\":\nui= \"string\"}\n"
            "[level]\nletter=!\ndefault=3\nflags=detail\n"
            "[secret]\nflags=s nogui\n"
            "[lines]\ndefault=one\ndefault=\ndefault=three\ndefault=\n"
            "[uptime]\ndefault=x\ndescription=hidden\nflags=nogui detail\n");
        write_file(ROUTERS + "r", "driver=sample\ntitle=One\nown=1\n");
    }
};

TEST_F(Listing, OfAStoppedItem)
{
    write_manifest();
    const std::string nameless = "\t?\t=first = line\n";
    const std::string own = "\t=\tdriver=sample\n";
    const std::string level = "\t!\tlevel=3\n";
    const std::string lines =
        "\t<..\tlines=one\n\t...\tlines=\n\t...\tlines=three\n\t?\tlines=\n\t?\todd ] key=\n";
    const std::string title = "\t=\ttitle=One\n";
    const std::string running = "\t=\town=1\n\t*\trunning=0\n";
    const std::string uptime = "\t*\tuptime=\n";
    const std::string of_running = ".desc=Media item running status\n.flags=!s:\n";
    const std::string of_uptime = ".desc=Length of time the media item has been running\n.flags=!s:\n";
    const std::pair<std::string, std::string> rows[] = {
        {"--no-manifest", own + running + title + uptime},
        {"", nameless + own + level + lines + running + "\t?\tsecret=\n" + title + uptime},
        {"--quicksummary", nameless + own + lines + running + "\t?\tsecret=\n" + title + uptime},
        {"--ex-quicksummary", level},
        {"--ex-quicksummary --quicksummary --no-manifest", own + running + title + uptime},
        {"--desc", nameless + own + level + lines + running + of_running +
                       "\t?\tsecret=\n.flags=!s:!nogui:\n" + title +
                       ".desc=What it is called,\nand more\n.ui={\"json_type\":\n \"string\"}\n" + uptime +
                       of_uptime},
        {"--desc --no-manifest", own + running + of_running + title + uptime + of_uptime},
    };
    for (const auto& [switches, text] : rows)
        EXPECT_EQ(output_of("zelm_routectl -c list " + switches), "r{\n" + text + "}\n") << switches;
    write_file(MANIFEST, "[title]\ndefault=Untitled\n[secret]\n[title]\n");
    EXPECT_EQ(output_of("zelm_routectl -c list"), "r{\n" + rows[0].second + "}\n")
        << "of a manifest with a broken line nothing is taken";
}

TEST_F(Listing, OfFilesThatTellTheirStateOrNothing)
{
    const std::string state = "\t*\trunning=0\n\t*\tuptime=\n";
    write_file(OUTPUTS + "stale", "pid=7\nrunning=1\nuptime=9\n");
    write_file(INPUTS + "unreadable", "k=1\n");
    output_of("chmod 0 /mnt/main/tv/inputs/unreadable");
    expect_all({
        {"zelm_outctl -c list --no-manifest", 0, "stale{\n\t?\tdriver=\n\t=\tpid=7\n" + state + "}\n"},
        {(has_other_users() ? AS_NOBODY : "") + "zelm_inctl -c list --no-manifest", 0,
            std::string("unreadable{\n") + (has_other_users() ? "" : "\t=\tk=1\n") + state + "}\n"},
    });
}

TEST_F(Listing, ShowsTheItemsThatAreAskedFor)
{
    const auto item = [](const std::string& name) {
        return name + "{\n\t=\tdriver=x11\n\t*\trunning=0\n\t*\tuptime=\n}\n";
    };
    for (const char* name : {"b", "B", "a10", "a2", "x y", "all"})
        write_file(OUTPUTS + name, "driver=x11\n");
    const std::string list = "zelm_outctl -c list --no-manifest ";
    expect_all({
        {list, 0, item("B") + item("a10") + item("a2") + item("all") + item("b") + item("x y")},
        {list + "-o 'x y'", 0, item("x y")},
        {list + "-o all", 0, item("all")},
        {list + "-o ."},
        {list + "--name-only -o a2 --desc", 0, "a2\n"},
        {list + "--name-only -o no"},
    });
}

TEST_F(Listing, OfAnItemThatPlaysAFileTellsItsTime)
{
    // The fraction counts nanoseconds in millionths.
    output_of("touch -d @1000000000.123456789 /run/media; ln -s media /run/link");
    const std::string time = "\t*\titem mtime=1000000123.457\n";
    const std::string rows[][3] = {{"/run/media", "", time}, {"/run/media", "--quicksummary ", time},
        {"/run/media", "--desc ", time + ".flags=!s:!nogui:\n"}, {"/run/link", "", ""}, {"/run", "", ""},
        {"/run/none", "", ""}, {"", "", ""}};
    for (const auto& [item, switches, text] : rows) {
        write_file(OUTPUTS + "main", "driver=x11\nitem=" + item + "\n");
        EXPECT_EQ(
            output_of("zelm_outctl -c list --no-manifest " + switches + "| sed -n '/item=/,/running=/p'"),
            "\t=\titem=" + item + "\n" + text + "\t*\trunning=0\n");
    }
    EXPECT_EQ(output_of("zelm_outctl -c list --no-manifest --ex-quicksummary"), "main{\n}\n");
}

TEST_F(Listing, OfARunningItemTellsItsProcess)
{
    write_file(CHANNELS + "channel1", "");
    const pid_t pid = start("zelm_chctl", "channel1");
    const auto uptime = [] {
        const std::string text =
            output_of("zelm_chctl -c list --no-manifest | sed -n 's/^\t\\*\tuptime=//p'");
        EXPECT_EQ(text.size() - text.find('.'), 5U) << text;
        return std::stod(text);
    };
    const double first = uptime();
    EXPECT_LT(first, 20);
    EXPECT_TRUE(eventually([&] { return uptime() >= first + 0.1; })) << "it goes on";
    // The name that a process gives itself may look like the fields behind it.
    write_file("/proc/" + std::to_string(pid) + "/comm", "a 1 2 3 (4 5");
    EXPECT_GE(uptime(), first);
    EXPECT_LT(uptime(), first + 20);
    EXPECT_EQ(output_of("zelm_chctl -c list --no-manifest --ex-quicksummary"), "channel1{\n}\n");
    EXPECT_EQ(output_of("zelm_chctl -c list --no-manifest | grep '\tpid='"),
        "\t*\tpid=" + std::to_string(pid) + "\n");
    ::kill(pid, SIGKILL);
    EXPECT_TRUE(eventually([] { return sh("zelm_chctl -c status -o channel1").status == 1; }));
    EXPECT_EQ(output_of("zelm_chctl -c list --no-manifest"), "channel1{\n\t*\trunning=0\n\t*\tuptime=\n}\n")
        << "a dead driver's socket is still there";
}

class FileTypes : public Listing {
protected:
    static void write_metadata(const std::string& file, const std::string& text)
    {
        write_file("/run/m/" + file, "");
        write_file("/run/m/." + file + ".metadir/metadata", text);
    }

    // The listing of a channel with these settings, without what every channel has.
    static std::string listed(const std::string& settings)
    {
        write_file(CHANNELS + "channel1", settings);
        return output_of(
            "zelm_chctl -c list --no-manifest --quicksummary | grep -E ' (file type|level)=' || :");
    }
};

TEST_F(FileTypes, OfEachRegionAndOfTheLowestLevel)
{
    write_metadata("mov", "*\tfile type\tvideo/quicktime\n");
    write_metadata("later", "*\tfile type\ta\n0\tfile type\tstream\n*\tfile types\tc\n*\tfile type\tb c\n");
    write_metadata("untyped", "*\tfile size\t7\nbroken line\n");
    output_of("mkdir -p /run/m/dir /run/m/.dir.metadir /run/m/.odd.metadir/metadata; touch /run/m/odd; "
              "printf '*\\tfile type\\tplaylist\\n' >/run/m/.dir.metadir/metadata; ln -s mov /run/m/link");
    const struct {
        std::string value;
        std::string type;
        bool has_lowest;  // a type that isn't known gives the lowest level none
    } rows[] = {
        {"/run/m/mov", "video/quicktime", true},
        {"/run/m/later", "b c", true},
        {"/run/m/dir", "playlist", true},
        {"/run/m/untyped", "", false},
        {"/run/m/odd", "", false},
        {"/run/m/link", "", true},
        {"/run/m/none", "", true},
        {"", "", true},
    };
    for (const auto& [value, type, has_lowest] : rows) {
        EXPECT_EQ(listed("item=" + value + "\n"), "\t*\titem file type=" + type + "\n") << value;
        EXPECT_EQ(listed("urgent lowest level=" + value + "\n"),
            "\t=\turgent lowest level=" + value + "\n" +
                (has_lowest ? "\t*\turgent lowest level file type=" + type + "\n" : ""));
    }
}

TEST_F(FileTypes, OfAllRegionsOfAChannelAndOfNothingElse)
{
    std::string settings = "eas av=/run\nglobal item 9=/run\n";
    std::string expected;
    for (const std::string region : {"!alt1", "!alt2", "background music", "global item 1", "global item 2",
             "global item 3", "global item 4", "global item 5", "global item 6", "global item 7",
             "global item 8", "item", "urgent"}) {
        settings += region + "=/run\n";
        expected += "\t*\t" + region + " file type=\n";
    }
    EXPECT_EQ(listed(settings), expected);
    EXPECT_EQ(listed("item file type=kept\n"), "\t=\titem file type=kept\n");
    write_file(OUTPUTS + "main", "item=/run\n");
    EXPECT_EQ(output_of("zelm_outctl -c list --no-manifest | grep -c 'file type' || :"), "0\n");
}

TEST_F(FileTypes, WaitForAWriterForAWhile)
{
    write_metadata("mov", "*\tfile type\tvideo/mp4\n");
    write_file(CHANNELS + "channel1", "item=/run/m/mov\n");
    Descriptor writer(::open("/run/m/.mov.metadir/metadata", O_RDONLY | O_CLOEXEC));
    ASSERT_EQ(lock_exclusively(writer.get()), 0);
    const std::string list = "zelm_chctl -c list --no-manifest";
    EXPECT_NE(output_of(list).find("\titem file type=\n"), std::string::npos) << "and not for ever";
    SKIP_UNLESS(HeldRun::is_possible());
    HeldRun held("flock", list);
    writer.reset();
    EXPECT_NE(held.end().find("\titem file type=video/mp4\n"), std::string::npos);
}

}  // namespace
