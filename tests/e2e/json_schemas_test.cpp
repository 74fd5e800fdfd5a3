// The JSON Schemas against the documents that the tools print, and the manifests against what drivers report.
#include <sstream>

#include "e2e/document_testing.hpp"

namespace {

struct Drivers {
    std::string tool;
    std::string directory;
    std::string program;  // what its name begins with
    std::string driver;   // in front of the word in the settings
    std::vector<std::string> words;
};

const Drivers DRIVERS_OF_TOOLS[] = {
    {"zelm_chctl", CHANNELS, "", "# ", {"channel"}},
    {"zelm_outctl", OUTPUTS, "zelm_out_", "driver=",
        {"alsa", "blackmagic_decklink_sdi", "drmkms", "fbdev", "internet_mpeg", "oss", "pulseaudio",
            "schedule_push", "shoutcast", "x11"}},
    {"zelm_inctl", INPUTS, "zelm_", "#!", {"trigger_rs232", "video_passthru", "video_passthru_v2"}},
    {"zelm_routectl", ROUTERS, "zelm_", "driver=",
        {"blackmagic_videohub", "knox_rs16x16hb", "knox_rs8x8hb", "knox_rsii", "sierra_video_aspen_hdsdi"}},
};

// Prints the documents of an item without settings and with its driver's keys filled three times, each time
// with other texts: those that were typed by hand. Two keys end a listing whose text is none of theirs.
constexpr char PRINT_DOCUMENTS[] = R"(
print_document() { printf 'WORD\t'; TOOL -c list --json -o WORD; }
echo 'DRIVER' >FILE; print_document
for first in 0 4 9; do
  awk -v first=$first -F '[][]' '
    BEGIN { print "DRIVER"; n = split(",1,-2.5,loud,3000000000,1e999,nan,15,25/1p,16:9,text,decibelm5,/a//b/,two words", texts, ",") }
    /^\[driver|^\[video aspect|^\[audio meter/ { next }
    /^\[/ { print $2 "=" texts[(first + count++) % n + 1] }
    END { if ("WORD" == "channel") print "audio meter=-inf,-3\nvideo aspect ratio=16:9" }
  ' /usr/share/tavorn4/arglist/PROGRAM.al >FILE
  print_document
done)";

// The keys of a running item's listing that have no description.
constexpr char PRINT_UNTOLD_KEYS[] = R"(TOOL -c list --desc -o WORD | awk '
    /^\t(<\.\.|\.\.\.)\t/ { next }
    /^\t/ { key = $0; getline; if (!/^\.desc=/) print key }')";

std::string complaints(const std::string& verdict)
{
    return output_of("/usr/bin/python3 " TESTS "/e2e/validate_documents.py " + verdict + " /run/documents");
}

class JsonSchemas : public Appliance {};

TEST_F(JsonSchemas, TakeEveryDocumentThatIsPrinted)
{
    std::string documents;
    for (const Drivers& drivers : DRIVERS_OF_TOOLS) {
        for (const std::string& word : drivers.words) {
            const bool is_channel = word == "channel";
            const auto named = [&](std::string script) {
                script = replaced(script, "PROGRAM", is_channel ? "zelm_rendermgr" : drivers.program + word);
                script = replaced(script, "DRIVER",
                    drivers.driver + (drivers.driver == "#!" ? replaced(word, "_", "-") : word));
                script = replaced(script, "FILE", drivers.directory + word);
                return replaced(replaced(script, "TOOL", drivers.tool), "WORD", word);
            };
            documents += output_of(named(PRINT_DOCUMENTS));
            bring_up(drivers.tool, word);
            documents += word + "\t{}\n" + word + "\t" + output_of(named("TOOL -c list --json -o WORD"));
            EXPECT_EQ(output_of(named(PRINT_UNTOLD_KEYS)), "") << word;
        }
    }
    write_file("/run/documents", documents);
    EXPECT_EQ(complaints("valid"), "");
}

TEST_F(JsonSchemas, RefuseWhatTheToolsWouldIgnoreOrMisread)
{
    write_file("/run/documents", R"(x11	{"x11": {"keepAbov": true}}
x11	{"x11": {"keepAbove": "yes"}}
x11	{"behaviour": {}}
x11	{"driver": "alsa"}
x11	{"source": "/mnt/main/tv/rendermgr/one"}
alsa	{"autorestart": 1}
drmkms	{"kms": {"connector": {"card": {"select": true}}}}
video_passthru	{"2_encoding": "1"}
shoutcast	{"enc": [{}, {"codec": "mp3"}]}
internet_mpeg	{"enc": [{}, {}, {}, {}]}
internet_mpeg	{"enc": [{"asi": [{"path": 5}]}]}
internet_mpeg	{"enc": {"0": {}}}
channel	{"behavior": {"systemDelay": {"count": 1, "unit": "seconds"}}}
channel	{"audio": {"normalizer": {"passes": [{}, {"minimum": -3}]}}}
channel	{"regions": {"main": {"kind": "items"}}}
channel	{"regions": {"item": {"policy": "never"}}}
channel	{"video": {"rate": "25:1p"}}
channel	{"regions": {"global": [{}, {}, {}, {}, {}, {}, {}, {}, {}]}}
)");
    EXPECT_EQ(complaints("refused"), "");
}

TEST_F(JsonSchemas, TellWhatAMemberIs)
{
    const struct {
        const char* driver;
        const char* path;
        const char* member;
    } cases[] = {
        {"x11", "x11.title", R"({"type": ["string", "null"], "default": "Tavorn 4 X11/XVideo output",
            "description": "X11 Window title"})"},
        {"x11", "x11.active", R"({"type": ["boolean", "null"], "default": false, "readOnly": true})"},
        {"x11", "driver", R"({"enum": ["x11", null]})"},
        {"drmkms", "kms.audio", R"({"default": "on", "examples": ["on", "off", "auto", "nochange"]})"},
        {"drmkms", "kms.refreshRate", R"({"type": ["number", "null"], "default": null})"},
        {"shoutcast", "driver", R"({"type": ["string", "null"], "default": "", "examples": ["shoutcast"]})"},
        {"channel", "reporting.interval", R"({"type": ["number", "null"], "default": 5})"},
        {"channel", "behavior.systemDelay", R"({"default": {"count": 1, "units": "seconds"}})"},
        {"channel", "behavior.expirationDelay", R"({"properties": {"count": {"default": 0.5}}})"},
        {"channel", "audio.meter", R"({"type": "array", "readOnly": true})"},
        {"channel", "debug.burnIn", R"({"writeOnly": true, "default": null})"},
        {"channel", "caption.conversion.force", R"({"type": ["boolean", "null"], "default": false})"},
    };
    for (const auto& row : cases) {
        const std::string text =
            read_file(std::string("/usr/share/zelmctl/schemas/") + row.driver + ".schema.json");
        json11::Json schema = parsed(text);
        std::istringstream path(row.path);
        for (std::string name; std::getline(path, name, '.');)
            schema = schema["properties"][name];
        expect_shown(schema, parsed(row.member), std::string(row.driver) + " " + row.path);
    }
}

}  // namespace
