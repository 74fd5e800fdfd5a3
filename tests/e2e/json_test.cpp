// An output's JSON document, out by "list --json" and in by "set", and what happens to a bad one.
#include "e2e/sandbox_testing.hpp"

using namespace std::string_literals;

namespace {

constexpr char FULL_X11[] =
    R"({"behavior": {"autostart": true, "autostartSource": true, "restart": true}, )"
    R"("debug": {"lastError": "err", "lastNotes": "one\ntwo"}, "driver": "x11", "name": "", )"
    R"("source": ["", "mnt", "main", "tv", "rendermgr", "channel1"], )"
    R"("video": {"rate": 25, "stretch": true}, )"
    R"("x11": {"active": true, "fullscreen": {"enable": true, "position": {"x": -10, "y": 20}, "using": true}, )"
    R"("keepAbove": true, "modeset": true, "resize": true, "server": ":0", )"
    R"("shm": {"enable": true, "using": true}, "title": "T \"q\"", "window": 77, )"
    R"("xv": {"enable": true, "using": true}}})"
    "\n";

// What the full document sets, in the order of the schema.
constexpr char FULL_FLAT[] =
    "#multiline\ndriver=x11\nitem=/mnt/main/tv/rendermgr/channel1\nautostart=1\nautorestart=1\n"
    "autostart item=1\ntitle=T \"q\"\nalways on top=1\nmodechange=1\nalways resize window=1\nactive=1\n"
    "xwindow=77\nusing x11 server=:0\ndisable xv=1\nusing xv=1\ndisable shm=1\nusing shm=1\nfullscreen=1\n"
    "using fullscreen=1\nfullscreen x=-10\nfullscreen y=20\ndisable stretching=1\nframe rate reduce=25\n"
    "last error=err\nlast notes=one\nlast notes=two\n";

class JsonDocuments : public Appliance {
protected:
    static std::string document_of(const std::string& file, const std::string& switches = "--no-manifest")
    {
        write_file(FILE_A, file);
        return output_of("zelm_outctl -c list -o a --json " + switches);
    }

    static std::string after_set(const std::string& file, const std::string& switches)
    {
        write_file(FILE_A, file);
        EXPECT_EQ(output_of("zelm_outctl -c set -o a " + switches), "");
        return read_file(FILE_A);
    }
};

TEST_F(JsonDocuments, OfX11OutputsComeOutAsTheyWentIn)
{
    EXPECT_EQ(document_of(FULL_FLAT), FULL_X11);
    write_file("/run/document.json", FULL_X11);
    for (const char* from : {"--json-from /run/document.json", "--json-from - </run/document.json",
             "--json-out \"$(cat /run/document.json)\"", "--json-out '{' --json-from - </run/document.json"})
        EXPECT_EQ(after_set("driver=x11\n", "--json-driver x11 "s + from), FULL_FLAT) << from;
    EXPECT_EQ(output_of("zelm_outctl -c list -o a --json --no-manifest"), FULL_X11);
}

TEST_F(JsonDocuments, WithOddSettingsInTheFile)
{
    // A word that is no "1" is false, and no number is 0; nothing of it ends the run.
    const std::string odd = "driver=x11\nautostart=true\nalways on top=01\nxwindow=abc\nfullscreen x=12abc\n"
                            "fullscreen y=3000000000\nframe rate reduce= 7 \nitem=a//b/\ntitle=\xff\x01\n";
    const std::string document = document_of(odd);
    for (const char* part : {R"("autostart": false)", R"("keepAbove": false)", R"("window": 0)", R"("x": 12)",
             R"("y": 0)", R"("rate": 7)", R"("source": ["a", "", "b", ""])", "\"title\": \"\xff\\u0001\""})
        EXPECT_NE(document.find(part), std::string::npos) << part << " in " << document;
}

TEST_F(JsonDocuments, ChangeOnlyWhatTheyName)
{
    const struct {
        const char* switches;
        const char* result;  // behind "driver=x11" and "kept=1"
    } ROWS[] = {
        {R"(--json-out '{"x11":{"title":"new"}}' --set kept=2 --set title=lost)", "title=new\n"},
        {R"(--json-out '{"x11":{"title":""}}')", ""},
        {R"(--json-out '{"x11":{"title":{"a":[1,null]},"window":"abc"}}')",
            "title={\"a\": [1, null]}\nxwindow=abc\n"},
        {R"(--json-out '{"x11":7}')", "title=Tavorn 4 X11/XVideo output\nalways on top=0\nmodechange=0\n"
                                      "always resize window=0\nactive=0\nxwindow=0\n"},
        {R"(--json-out '{"x11":{"title":"a\nb"}}')", "title=a\ntitle=b\n"},
        // What changes nothing still rewrites the file, and the pairs are gone.
        {"--json-out '{}' --set kept=2", "title=old\n"},
        {"--json-out '{\"x11\":' --set kept=2", "title=old\n"},
        {"--json-out 'no JSON' --set kept=2", "title=old\n"},
        // The last one on the line counts.
        {R"(--json-from /no/such/file --json-out '{"x11":{"title":"1"}}' --json-out '{"x11":{"title":"2"}}')",
            "title=2\n"},
        {R"(--json-driver alsa --json-driver x11 --json-out '{"x11":{"title":"2"}}')", "title=2\n"},
    };
    const std::string file = "driver=x11\nkept=1\ntitle=old\n";
    for (const auto& row : ROWS)
        EXPECT_EQ(after_set(file, "--json-driver x11 "s + row.switches),
            "#multiline\ndriver=x11\nkept=1\n"s + row.result)
            << row.switches;
    // An empty text is no document, and leaves the pairs their turn.
    for (const char* none : {"--json-from /usr", "--json-out ''", "--json-from - </dev/null",
             "--json-out '{}' --json-from /no/such/file"})
        EXPECT_EQ(after_set(file, "--json-driver x11 --set kept=2 "s + none),
            "#multiline\ndriver=x11\ntitle=old\nkept=2\n")
            << none;
}

TEST_F(JsonDocuments, OfSeveralItemsAreOneOfTheFirst)
{
    sh("cd /mnt/main/tv/outputs; printf 'driver=x11\ntitle=first\n' >b; "
       "printf 'driver=fbdev\ntitle=second\nframe rate reduce=5\n' >c");
    const Outcome listing = sh("zelm_outctl -c list --json --no-manifest");
    EXPECT_NE(listing.out.find(R"("title": "first")"), std::string::npos) << listing.out;
    EXPECT_NE(listing.out.find(R"("rate": 5)"), std::string::npos) << "the first has none of its own";
    expect_all({
        {"zelm_outctl -c list --json -o gone", 0, "{}\n", ""},
        {"zelm_inctl -c list --json", 0, "{}\n", ""},
        {"zelm_outctl -c list --json --name-only", 0, "b\nc\n", ""},
        {"zelm_outctl -c list --json --name-only -o gone", 0, "", ""},
        {"zelm_outctl -c list --json -o b --no-manifest --quicksummary | grep -c '\"title\": \"first\"'", 0,
            "1\n", ""},
        // Other commands don't look at documents.
        {"zelm_outctl -c status -o b --json --json-out '{' --json-driver x11", 1,
            "Driver x11 process is stopped\n", ""},
        {"rm -r /mnt/main/tv/routing; zelm_routectl -c list --json", 1, "{}\n", ""},
    });
}

}  // namespace
