// Documents through the command line: out by "list --json", in by "set", and what happens to a bad one.
#include "e2e/sandbox_testing.hpp"
#include "unit/schema_testing.hpp"

namespace {

constexpr char X11[] =
    R"({"behavior": {"autostart": true, "autostartSource": false, "restart": false}, )"
    R"("debug": {"lastError": "", "lastNotes": "one\ntwo"}, "driver": "x11", "name": "", )"
    R"("source": ["", "mnt", "one"], "video": {"rate": 25, "stretch": false}, "x11": {"active": false, )"
    R"("fullscreen": {"enable": false, "position": {"x": -10, "y": 0}, "using": false}, "keepAbove": true, )"
    R"("modeset": false, "resize": false, "server": "", "shm": {"enable": false, "using": false}, )"
    R"("title": "T \"q\"", "window": 0, "xv": {"enable": false, "using": false}}})"
    "\n";

class JsonDocuments : public Appliance {};

TEST_F(JsonDocuments, OfX11OutputsComeOutAsTheyWentIn)
{
    write_file("/run/document.json", X11);
    for (const std::string from : {"--json-from /run/document.json", "--json-from - </run/document.json",
             "--json-out \"$(cat /run/document.json)\"", "--json-out '{' --json-from - </run/document.json",
             "--json-driver alsa --json-driver x11 --json-from /run/document.json --set title=lost"}) {
        write_file(OUTPUTS + "a", "driver=x11\nfullscreen x=abc\n");
        EXPECT_EQ(output_of("zelm_outctl -c set -o a --json-driver x11 " + from), "") << from;
        EXPECT_EQ(output_of("zelm_outctl -c list -o a --json --no-manifest"), X11) << from;
    }
}

TEST_F(JsonDocuments, WithoutEndAreRefusedBeforeAnythingIsChanged)
{
    write_file(OUTPUTS + "a", "b=2\n");
    const std::string file = output_of("stat -c %i:%y " + FILE_A);
    expect_all({
        {"timeout 10 zelm_outctl -c set -o a --json-from /dev/zero", 1, "",
            "--json-from /dev/zero has more than 16 MiB\n"},
        {"timeout 10 zelm_outctl -c set -o a --json-from - </dev/zero", 1, "",
            "--json-from - has more than 16 MiB\n"},
    });
    EXPECT_EQ(output_of("stat -c %i:%y " + FILE_A), file);
}

TEST_F(JsonDocuments, ChangeOnlyWhatTheyName)
{
    const std::string x11 = "driver=x11\nkept=1\ntitle=old\n";
    const struct {
        const char* tool;
        std::string directory;
        std::string seed;
        const char* switches;
        std::string file;
    } cases[] = {
        {"zelm_outctl", OUTPUTS, x11, R"(x11 --json-out '{"x11": {"title": "a\nb", "window": "abc"}}')",
            "driver=x11\nkept=1\ntitle=a\ntitle=b\nxwindow=abc\n"},
        // What changes nothing still rewrites the file; an empty text is no document.
        {"zelm_outctl", OUTPUTS, x11, "x11 --json-out 'no JSON' --set kept=2", x11},
        {"zelm_outctl", OUTPUTS, x11, "x11 --json-from /usr --set kept=2", "driver=x11\ntitle=old\nkept=2\n"},
        {"zelm_inctl", INPUTS, "#!trigger-rs232\nset dtr=1\n",
            R"(trigger_rs232 --json-out '{"driver": "x11", "set_dtr": null, "load_drivers": null}')",
            "load drivers=1\n"},
        {"zelm_routectl", ROUTERS, "driver=knox_rsii\nport=1\n",
            R"(knox_rsii --json-out '{"driver": "alsa", "port": null, "inputs": 16}')",
            "driver=knox_rsii\ninputs=16\n"},
    };
    for (const auto& row : cases) {
        const std::string item = row.directory == CHANNELS ? "channel1" : "a";
        write_file(row.directory + item, row.seed);
        output_of(std::string(row.tool) + " -c set -o " + item + " --json-driver " + row.switches);
        const std::string marker =
            row.seed.starts_with("#") ? row.seed.substr(0, row.seed.find('\n') + 1) : "";
        EXPECT_EQ(read_file(row.directory + item), marker + "#multiline\n" + row.file) << row.switches;
    }
}

TEST_F(JsonDocuments, OfSeveralItemsAreOneOfTheFirst)
{
    write_file(OUTPUTS + "b", "driver=x11\ntitle=first\n");
    write_file(OUTPUTS + "c", "driver=fbdev\ntitle=second\nframe rate reduce=5\n");
    const json11::Json document = parsed(output_of("zelm_outctl -c list --json --no-manifest"));
    EXPECT_EQ(document["x11"]["title"], json11::Json("first"));
    EXPECT_EQ(document["video"]["rate"], json11::Json(5)) << "the first has none of its own";
    expect_all({
        {"zelm_outctl -c list --json -o gone", 0, "{}\n"},
        {"zelm_outctl -c list --json --name-only", 0, "b\nc\n"},
        {"zelm_outctl -c status -o b --json --json-out '{'", 1, "Driver x11 process is stopped\n"},
        {"rm -r /mnt/main/tv/routing; zelm_routectl -c list --json", 1, "{}\n"},
    });
}

TEST_F(JsonDocuments, AreWhatTheirSchemasSay)
{
    EXPECT_EQ(output_of("/usr/bin/python3 " TESTS "/e2e/json_schemas.py"), "");
}

// Whatever can't be read falls back silently, but for these two.
TEST_F(JsonDocuments, OfABadAspectRatioOrMeterEndTheListing)
{
    for (const std::string bad :
        {"video aspect ratio=16:9:1", "video aspect ratio=16", "audio meter=-12.5,"}) {
        write_file(CHANNELS + "channel1", bad + "\n");
        const Outcome outcome = sh("exec zelm_chctl -c list -o channel1 --json");
        EXPECT_EQ(outcome.status, 134) << bad;
        EXPECT_EQ(outcome.out, "") << bad;
    }
}

}  // namespace
