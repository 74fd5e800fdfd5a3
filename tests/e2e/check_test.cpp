// What zelmctl check says of documents, settings files and manifests, and what of it the tools then do.
#include "e2e/sandbox_testing.hpp"

using namespace std::string_literals;

namespace {

class Check : public Appliance {
protected:
    struct Row {
        std::string arguments;
        std::string bytes;     // of the file "f"
        std::string findings;  // each behind "f"
    };
    static void expect_found(const std::vector<Row>& rows)
    {
        for (const Row& row : rows) {
            write_file("/run/f", row.bytes);
            const Outcome checked = sh("cd /run; zelmctl check " + row.arguments + " f");
            EXPECT_EQ(checked.out + checked.err, row.findings) << row.arguments << "\n" << row.bytes;
            EXPECT_EQ(checked.status, row.findings.empty() ? 0 : 1) << row.bytes;
        }
    }
};

const std::string DOCUMENT = "document --driver ";
const std::string SETTINGS = "settings --kind ";

TEST_F(Check, FindsMembersThatWouldBeIgnored)
{
    expect_found({
        {DOCUMENT + "x11", R"({"driver": "x11", "name": "", "source": [""], "x11": {"title": null}})", ""},
        {DOCUMENT + "x11",
            R"({"always on top": true, "driver": "alsa", "x11": {"\u001b\u009b\ud83d\udcfa": 1, "titel": 1}})",
            "f: always on top: would be ignored; did you mean \"x11.keepAbove\"?\n"
            "f: x11.\\x1b\\xc2\\x9b\xf0\x9f\x93\xba: would be ignored\n"
            "f: x11.titel: would be ignored; did you mean \"x11.title\"?\n"
            "f: driver: \"alsa\" would be ignored: no document sets this\n"},
        {DOCUMENT + "''", R"({"audio": 7, "caption": {"conversion": {"force": true}},
            "regions": {"global": [null, {"enable": true}]}, "video": {"aspect": {"width": 16, "hight": 9}}})",
            "f: audio: no object, and would be ignored\n"
            "f: video.aspect.hight: would be ignored; did you mean \"video.aspect.height\"?\n"
            "f: caption.conversion.force: would be ignored: what it needs beside it is missing\n"
            "f: regions.global.1.enable: would be ignored: what it needs beside it is missing\n"
            "f: video.aspect: would be ignored: what it needs beside it is missing\n"},
        {DOCUMENT + "shoutcast",
            R"({"enc": [{"mp2__channel_mode": ""}, {"mp2__channel_mode": "x"}, {}, {}]})",
            "f: enc.3: would be ignored: only 3 elements are read\n"
            "f: enc.1.mp2__channel_mode: would be ignored; did you mean \"enc.1.mp2_channel_mode\"?\n"},
        // An output of an encoder is read if the encoder of its place has one of its place.
        {DOCUMENT + "internet_mpeg", R"({"enc": [{"asi": [{"path": "a"}, {"path": "b"}]}, {"asi": []}]})",
            "f: enc.0.asi.1.path: would be ignored: what it needs beside it is missing\n"},
        {DOCUMENT + "x12", R"({"name": "One"})",
            "f: the driver word \"x12\" has no document, read as a channel's; did you mean \"x11\"?\n"},
    });
}

TEST_F(Check, FindsWhatTheToolsStoreInThePlaceOfAValue)
{
    const struct {
        const char* driver;
        const char* document;
        const char* findings;
        const char* stored;
    } ROWS[] = {
        {"x11", R"({"video": {"rate": "abc"}, "x11": {"keepAbove": "yes", "title": "\na", "window": 7}})",
            "f: video.rate: \"abc\" would be stored as \"abc\", which is read back as \"0\"\n"
            "f: x11.keepAbove: \"yes\" would be stored as \"0\"\n"
            "f: x11.title: \"\\na\" would be stored as \"a\"\n"
            "f: x11.window: is status, and would be stored as \"7\" under \"xwindow\"\n",
            "title=\ntitle=a\nalways on top=0\nxwindow=7\nframe rate reduce=abc\n"},
        {"x11", R"({"video": 7})",
            "f: video: no object, and would set \"disable stretching\" to \"1\" and 1 more\n",
            "disable stretching=1\nframe rate reduce=0\n"},
        {"alsa", R"({"autostart": true, "audio_volume": 50})",
            "f: autostart: true would be stored as \"true\"\n", "autostart=true\naudio volume=50\n"},
        {"channel", R"({"audio": {"normalizer": {"enable": true, "passes": [{}, {"upper": -3}]}}})",
            "f: audio.normalizer.enable: true would be stored as \"1\\n1\"\n"
            "f: audio.normalizer.passes.1.upper: -3 would be stored as \"=-3\"\n",
            "audio normalizer enable=1\naudio normalizer enable=1\naudio normalizer upper level 2==-3\n"},
        {"channel", R"({"regions": {"main": {"kind": "alerts"}},
            "video": {"aspect": {"width": "4:3", "height": 1}, "rate": {"numerator": 25}}})",
            "f: regions.main: {\"kind\": \"alerts\"} would be stored as nothing\n"
            "f: video.aspect: {\"height\": 1, \"width\": \"4:3\"} would be stored as \"4:3:1\", on which a "
            "listing as JSON ends abnormally\n"
            "f: video.rate: {\"numerator\": 25} would be stored as \"25:1001li bff\"\n",
            "video aspect ratio=4:3:1\nvideo rate=25:1001li bff\n"},
        {"alsa", R"({"autostart": "yes", "driver": null})",
            "f: autostart: \"yes\" is no number, and counts as 0\n"
            "f: driver: null would leave the item without a driver\n",
            "autostart=yes\n"},
        {"internet_mpeg", R"({"driver": "alsa"})",
            "f: driver: \"alsa\" would be stored, and is not the document's driver\n", "driver=alsa\n"},
        {"channel", R"({"audio": {"normalizer": {"passes": [{"lower": null, "maximum": null}]}},
            "regions": {"item": {"video": {"geometry": {"size": null}}}, "global": [null]},
            "reporting": {"service": null}, "video": null})",
            "f: video: null would be ignored, and leave the settings as they are\n"
            "f: audio.normalizer.passes.0.maximum: null would be ignored, and leave the setting as it is\n"
            "f: regions.item.video.geometry.size: null would be stored as \"0 0\"\n"
            "f: reporting.service: null would be stored as \"/\"\n"
            "f: regions.item.video.align: is missing, and \"center center\" would be stored\n",
            "reporting=/\naudio normalizer lower level=-6\nitem size=0 0\nitem align=center center\n"},
    };
    for (const auto& row : ROWS) {
        expect_found({{DOCUMENT + row.driver, row.document, row.findings}});
        write_file(OUTPUTS + "a", "kept=1\n");
        output_of("zelm_outctl -c set -o a --json-from /run/f --json-driver "s + row.driver);
        EXPECT_EQ(read_file(OUTPUTS + "a"), "#multiline\nkept=1\n"s + row.stored) << row.document;
    }
    expect_found({{DOCUMENT + "x11", R"({"x11": {"title": ")" + std::string(2000, 'a') + "\"}}",
        "f: x11.title: \"" + std::string(60, 'a') + "\"... would be cut to its first 1016 bytes\n"}});
}

TEST_F(Check, FindsDocumentsAndManifestsThatAreNone)
{
    expect_found({
        {DOCUMENT + "x11", "", "f:1:1: no JSON: unexpected end of input\n"},
        {DOCUMENT + "x11", "{\"a\":\n \"\xc3\xa4\",}",
            "f:2:6: no JSON: expected '\"' in object, got '}' (125)\n"},
        {DOCUMENT + "x11", "{} {}", "f:1:4: no JSON: unexpected trailing '{' (123)\n"},
        {DOCUMENT + "x11", "[1]", "f: no object, and would set nothing\n"},
        {DOCUMENT + "channel", R"({"video": {"rate": [25, 1]}, "name": ["a"], "regions": {"item": []}})",
            "f: regions.item: no object, and would end the run abnormally\n"
            "f: video.rate: no object, and would end the run abnormally\n"
            "f: name: [\"a\"] would be stored as \"[\"a\"]\"\n"},
        {"manifest", "# a\n[a]\ndefault=1\nflags=s nogui\n", ""},
        {"manifest", "[a]\ndescripton=x\nflags=y\n", "f:2: no section has a member \"descripton\"\n"},
        {"manifest", "[a]\nflags=s noguy\n", "f:2: not all of these are flags: \"s noguy\"\n"},
        {"manifest", "[a]\nflags=s  nogui\n", "f:2: not all of these are flags: \"s  nogui\"\n"},
        {"manifest", "[a]\nletter=ab\n", "f:2: a letter is one byte: \"ab\"\n"},
        {"manifest", "[a]\nletter=\n", "f:2: a letter is one byte: \"\"\n"},
        {"manifest", "[a]\nno member\n", "f:2: neither a section nor a member: \"no member\"\n"},
        {"manifest", "[\n", "f:1: a section ends in \"]\"\n"},
        {"manifest", "default=1\n", "f:1: there is no section yet that the member could belong to\n"},
        {"manifest", "[a]\n\n[a]\n", "f:3: \"[a]\" has a section already\n"},
        {"manifest", "[a]\ndescription=" + std::string(1010, 'a') + "\n", ""},
        {"manifest", "[a]\ndescription=" + std::string(1011, 'a') + "\n",
            "f:2: a line may have 1022 bytes, and what is behind them counts as a line of its own\n"},
    });
}

TEST_F(Check, FindsLinesOfSettingsThatTheToolsPassOver)
{
    const std::string x11 = "driver=x11\ntitle=a\n";
    expect_found({
        {SETTINGS + "output", "#!x\n#multiline\n" + x11 + "title=b\n\nlast error=\nautorestart=1\n+go=1\n",
            ""},
        {SETTINGS + "output", x11 + "titel=b\nno setting\n=x\ntitle=c\n#multiline\r\n",
            "f:3: unknown key \"titel\"; did you mean \"title\"?\nf:4: sets nothing, having no \"=\": \"no setting\"\n"
            "f:5: sets nothing, having no key in front of the \"=\"\n"
            "f:6: replaces the \"title\" of line 2, without \"#multiline\"\n"
            "f:7: holds a carriage return, which counts like any other byte\n"},
        {SETTINGS + "output", "#multiline\n" + x11 + "+go=1\ntitle=b\0\n"s,
            "f:5: holds a NUL\nf:5: replaces the \"title\" of line 3, from which other keys part it\n"},
        {SETTINGS + "output", "item=" + std::string(1017, 'a') + "\n" + x11 + "titel=1\n",
            "f:4: unknown key \"titel\"; did you mean \"title\"?\n"},
        {SETTINGS + "output", x11 + "item=" + std::string(1018, 'a') + "\n",
            "f:3: has more than 1022 bytes, and what is behind them counts as a line of its own\n"},
        {SETTINGS + "router", x11, "f:1: the driver \"x11\" is of another kind of items\n"},
        {SETTINGS + "router", "driver=knox_rs2\nport=1\n",
            "f:1: the driver \"knox_rs2\" has no document, keys are not checked; did you mean \"knox_rsii\"?\n"},
        {SETTINGS + "output", "driver=newtek_ndi\nkey=1\n",
            "f:1: the driver \"newtek_ndi\" has no document, keys are not checked\n"},
        {SETTINGS + "output", "driver=x12\nkey=1\n",
            "f:1: unknown driver word \"x12\"; did you mean \"x11\"?\n"},
        {SETTINGS + "router", "port=1\n", "f: no driver is named, so that the keys can't be checked\n"},
        {SETTINGS + "input", "#! Video-PassThru\n#multiline\ninterface=a\n", ""},
        {SETTINGS + "input", "#video-passthru\ninterface=a\n",
            "f:1: a start takes this for the type of the input, and a listing only \"#!\"\n"},
        {SETTINGS + "input", "#!video-passtru\ndriver=video_passthru\n",
            "f:1: unknown type of input \"video-passtru\"; did you mean \"video-passthru\"?\n"},
        {SETTINGS + "input", "driver=trigger_rs232\nport=1\n",
            "f: has no type in its first line, and never starts\n"},
        {SETTINGS + "input", "#!trigger-rs232\ndriver=video_passthru\nport=1\n",
            "f:2: a listing takes \"video_passthru\" for the driver, and a start \"trigger_rs232\"\n"},
        // Names that a document has for them.
        {SETTINGS + "output", "driver=x11\nautostart=yes\nautorestart= 1x\nkeepAbove=1\nx11.titel=a\n",
            "f:2: \"yes\" is no number, and counts as 0\n"
            "f:4: unknown key \"keepAbove\"; did you mean \"always on top\"?\n"
            "f:5: unknown key \"x11.titel\"; did you mean \"title\"?\n"},
        {SETTINGS + "channel", "global item 8 loop=1\n!alt2 loop=1\naudio meter=1,b\n",
            "f:3: a listing as JSON ends abnormally on the \"audio meter\" of \"1,b\"\n"},
    });
}

TEST_F(Check, TellsItsVerdictToScripts)
{
    write_file(OUTPUTS + "a", "driver=x11\ntitel=\xff\n");
    expect_all({
        {"echo driver=x11 | zelmctl check --json settings --kind output -", 0, "[]\n"},
        {"zelmctl check settings /run/gone " + OUTPUTS + "gone " + OUTPUTS + "a", 2,
            "/mnt/main/tv/outputs/a:2: unknown key \"titel\"; did you mean \"title\"?\n",
            "/run/gone: no directory of items; which kind is it? --kind tells\n"
            "/mnt/main/tv/outputs/gone: No such file or directory\n"},
        {"zelmctl --version | grep -E '^zelmctl [0-9]+\\.[0-9]+\\.[0-9]+$' >/dev/null"},
        {"zelmctl check document a 2>&1 | head -n 1", 0, "zelmctl check: --driver WORD is missing\n"},
        {"zelmctl check manifest 2>&1 | head -n 1", 0, "zelmctl check: FILE is missing\n"},
        // A terminal takes also the overlong form of a control character for one.
        {"cd /run; f=$(printf 'a\\033\\302\\233\\340\\202\\233'); echo '[' >\"$f\"; zelmctl check manifest \"$f\" \"$f.gone\"",
            2, "a\\x1b\\xc2\\x9b\\xe0\\x82\\x9b:1: a section ends in \"]\"\n",
            "a\\x1b\\xc2\\x9b\\xe0\\x82\\x9b.gone: No such file or directory\n"},
        {"timeout 10 zelmctl check manifest - </dev/zero", 2, "", "-: File too large\n"},
        {"rm -f /run/pipe; mkfifo /run/pipe; timeout 10 zelmctl check manifest /run /run/pipe", 2, "",
            "/run: Is a directory\n/run/pipe: No regular file\n"},
        {"seq 3000 | zelmctl check settings --kind channel - | tail -n 1", 0,
            "-: there is more than the 1000 findings above\n"},
        {"echo '[' | zelmctl check manifest - >/dev/full", 2, "", "zelmctl: No space left on device\n"},
    });
}

}  // namespace
