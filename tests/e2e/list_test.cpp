// The exact text of a listing: settings, manifest, process state and file types side by side.
#include <csignal>
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
            "[title]\ndefault=Untitled\ndescription=What it is called\nui={\"json_type\": \"string\"}\n"
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
    const std::string own = "\t=\tdriver=sample\n";
    const std::string level = "\t!\tlevel=3\n";
    const std::string lines = "\t<..\tlines=one\n\t...\tlines=\n\t...\tlines=three\n\t?\tlines=\n";
    const std::string from_manifest =
        lines + "\t=\town=1\n\t*\trunning=0\n\t?\tsecret=\n\t=\ttitle=One\n\t*\tuptime=\n";
    const std::string without_manifest = own + "\t=\town=1\n\t*\trunning=0\n\t=\ttitle=One\n\t*\tuptime=\n";
    const std::string running = "\t=\town=1\n\t*\trunning=0\n.desc=Media item running status\n.flags=!s:\n";
    const std::string uptime =
        "\t*\tuptime=\n.desc=Length of time the media item has been running\n.flags=!s:\n";
    const struct {
        const char* switches;
        std::string text;
    } rows[] = {
        {"--no-manifest", without_manifest},
        {"", own + level + from_manifest},
        {"--quicksummary", own + from_manifest},
        {"--ex-quicksummary", level},
        {"--ex-quicksummary --quicksummary --no-manifest", without_manifest},
        {"--desc", own + level + lines + running +
                       "\t?\tsecret=\n.flags=!s:!nogui:\n\t=\ttitle=One\n"
                       ".desc=What it is called\n.ui={\"json_type\": \"string\"}\n" +
                       uptime},
        {"--desc --ex-quicksummary", level},
        {"--desc --no-manifest", own + running + "\t=\ttitle=One\n" + uptime},
    };
    for (const auto& row : rows)
        EXPECT_EQ(output_of(std::string("zelm_routectl -c list ") + row.switches), "r{\n" + row.text + "}\n")
            << row.switches;
}

TEST_F(Listing, OfFilesOfAllKinds)
{
    write_manifest();
    const std::string state = "\t*\trunning=0\n\t*\tuptime=\n";
    const struct {
        std::string tool;
        std::string path;
        const char* settings;
        std::string text;
    } rows[] = {
        {"zelm_outctl", OUTPUTS + "driverless", "driver=\n", "\t=\tdriver=\n" + state},
        {"zelm_inctl", INPUTS + "unmarked", "\n", state},
        {"zelm_chctl", CHANNELS + "channel2", "b=2\nb=3\n=x\n", "\t=\t=x\n\t=\tb=3\n" + state},
        {"zelm_outctl", OUTPUTS + "stale", "pid=7\nrunning=1\nuptime=9\n",
            "\t?\tdriver=\n\t=\tpid=7\n" + state},
    };
    for (const auto& row : rows) {
        write_file(row.path, row.settings);
        const std::string name = fs::path(row.path).filename();
        EXPECT_EQ(output_of(row.tool + " -c list --no-manifest -o " + name), name + "{\n" + row.text + "}\n");
    }
}

TEST_F(Listing, OfAFileThatCannotBeReadTellsItsStateAlone)
{
    write_file(INPUTS + "secret", "#!video-passthru\ncap=1\n");
    output_of("chmod 0 /mnt/main/tv/inputs/secret");
    if (!has_other_users())
        GTEST_SKIP() << "there are no other users here";
    EXPECT_EQ(output_of(AS_NOBODY + "zelm_inctl -c list --no-manifest"),
        "secret{\n\t*\trunning=0\n\t*\tuptime=\n}\n");
}

TEST_F(Listing, ShowsTheItemsThatAreAskedFor)
{
    for (const char* name : {"b", "B", "a10", "a2", "x y", "all"})
        write_file(OUTPUTS + name, "driver=x11\n");
    const auto item = [](const std::string& name) {
        return name + "{\n\t=\tdriver=x11\n\t*\trunning=0\n\t*\tuptime=\n}\n";
    };
    const struct {
        const char* switches;
        std::string text;
    } rows[] = {
        {"", item("B") + item("a10") + item("a2") + item("all") + item("b") + item("x y")},
        {"-o 'x y'", item("x y")},
        {"-o all", item("all")},
        {"-o no", ""},
        {"-o .", ""},
        {"--name-only -o a2 --desc", "a2\n"},
        {"--name-only -o no", ""},
        {"--json -o no", "{}\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(output_of(std::string("zelm_outctl -c list --no-manifest ") + row.switches), row.text)
            << row.switches;
}

TEST_F(Listing, OfAnItemThatPlaysAFileTellsItsTime)
{
    // The fraction counts nanoseconds in millionths.
    output_of("touch -d @1000000000.25 /run/media; ln -s media /run/link");
    const auto expect_listed = [](const std::string& item, const std::string& switches,
                                   const std::string& time) {
        write_file(OUTPUTS + "main", "driver=x11\nitem=" + item + "\n");
        EXPECT_EQ(
            output_of("zelm_outctl -c list --no-manifest " + switches + "| sed -n '/item=/,/running=/p'"),
            "\t=\titem=" + item + "\n" + time + "\t*\trunning=0\n")
            << item << switches;
    };
    const std::string time = "\t*\titem mtime=1000000250.000\n";
    expect_listed("/run/media", "", time);
    expect_listed("/run/media", "--quicksummary ", time);
    expect_listed("/run/media", "--desc ", time + ".flags=!s:!nogui:\n");
    for (const char* none : {"/run/link", "/run", "/run/none", ""})
        expect_listed(none, "", "");
    EXPECT_EQ(output_of("zelm_outctl -c list --no-manifest --ex-quicksummary"), "main{\n}\n");
}

TEST_F(Listing, OfARunningItemTellsItsProcess)
{
    write_file(CHANNELS + "channel1", "");
    const pid_t pid = start("zelm_chctl", "channel1");
    const auto uptime = [] {
        const std::string listing = output_of("zelm_chctl -c list --no-manifest");
        const std::size_t at = listing.find("\t*\tuptime=");
        EXPECT_NE(at, std::string::npos) << listing;
        const std::string text = listing.substr(at + 10, listing.find('\n', at) - at - 10);
        EXPECT_EQ(text.size() - text.find('.'), 4U) << text;
        return std::stod(text);
    };
    const double first = uptime();
    EXPECT_GE(first, 0);
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
    write_metadata("bare", "");
    output_of("mkdir -p /run/m/dir /run/m/.dir.metadir /run/m/.odd.metadir/metadata; touch /run/m/odd; "
              "printf '*\\tfile type\\tplaylist\\n' >/run/m/.dir.metadir/metadata; ln -s mov /run/m/link");
    const struct {
        std::string value;
        std::string type;
        const char* lowest;  // the line for the lowest level, where a type that isn't known gives none
    } rows[] = {
        {"/run/m/mov", "video/quicktime", "\t*\turgent lowest level file type=video/quicktime\n"},
        {"/run/m/later", "b c", "\t*\turgent lowest level file type=b c\n"},
        {"/run/m/dir", "playlist", "\t*\turgent lowest level file type=playlist\n"},
        {"/run/m/untyped", "", ""},
        {"/run/m/bare", "", ""},
        {"/run/m/odd", "", ""},
        {"/run/m/link", "", "\t*\turgent lowest level file type=\n"},
        {"/run/m/none", "", "\t*\turgent lowest level file type=\n"},
        {"", "", "\t*\turgent lowest level file type=\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(listed("item=" + row.value + "\n"), "\t*\titem file type=" + row.type + "\n") << row.value;
        EXPECT_EQ(listed("urgent lowest level=" + row.value + "\n"),
            "\t=\turgent lowest level=" + row.value + "\n" + row.lowest)
            << row.value;
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
    EXPECT_EQ(listed("item file type=kept\n"), "\t=\titem file type=kept\n")
        << "there is no item to have a type";
    write_file(OUTPUTS + "main", "item=/run\n");
    EXPECT_EQ(output_of("zelm_outctl -c list --no-manifest | grep -c 'file type' || :"), "0\n");
}

TEST_F(FileTypes, WaitForAWriterForAWhile)
{
    write_metadata("mov", "*\tfile type\tvideo/mp4\n");
    const std::string locked = "flock -x /run/m/.mov.metadir/metadata sleep ";
    output_of(locked + "0.12 & sleep 0.04");
    EXPECT_EQ(listed("item=/run/m/mov\n"), "\t*\titem file type=video/mp4\n");
    output_of(locked + "5 & sleep 0.1");
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(listed("item=/run/m/mov\n"), "\t*\titem file type=\n");
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(250));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(3));
}

TEST_F(FileTypes, AreThoseThatTheAppliancePutThere)
{
    write_file("/run/m/text", "some text\n");
    output_of("zelm_startitem --file /run/m/text --identify --create-meta");
    EXPECT_EQ(listed("item=/run/m/text\n"), "\t*\titem file type=text/plain\n");
}

}  // namespace
