// A channel through the command line: its document, and what it shows of the media that it plays.
#include "e2e/sandbox_testing.hpp"
#include "unit/schema_testing.hpp"

using json11::Json;

namespace {

class Channel : public Appliance {
protected:
    const std::string m_file = CHANNELS + "channel1";
};

TEST_F(Channel, TakesADocumentIntoItsFile)
{
    write_file(m_file, "catch up speed=50\nfoo=bar\n");
    output_of(
        R"(zelm_chctl -c set -o channel1 --json-out '{"behavior": {"recoverySpeed": null, "systemDelay": {}},
        "audio": {"normalizer": {"enable": true, "passes": [{}, {"upper": null}]}},
        "regions": {"item": {"media": {"path": ["", "mnt", "a b.png"]}, "video": {"enable": true}}}}')");
    // A key of the normalizer stands twice; those of its second pass end in "=".
    EXPECT_EQ(read_file(m_file),
        "#multiline\nfoo=bar\nsystem delay=1s\naudio normalizer enable=1\n"
        "audio normalizer enable=1\naudio normalizer upper level 2==-3\nitem=/mnt/a b.png\n"
        "item video enabled=1\nitem align=center center\n");
}

TEST_F(Channel, ShowsWhatItPlays)
{
    output_of("mkdir -p /mnt/main/media && cp /usr/share/tavorn4/samples/* /mnt/main/media");
    output_of("/usr/bin/zelm_startitem --file /mnt/main/media/bars.png --identify --create-meta");
    write_file(m_file, "channel name=News\nitem=/mnt/main/media/bars.png\nurgent=/no/such/file\n");
    start("zelm_chctl", "channel1");
    const std::string listing = output_of("zelm_chctl -c list --desc");
    for (const char* const lines :
        {"channel1{\n", "\t?\taudio rate=48000\n",
            "\t*\taudio meter=-18.5,-19.25\n.desc=Level of each audio channel in dBFS\n.flags=!s:\n"
            ".ui={\"json_type\": \"array\"}\n",
            "\t*\titem lowest level=/mnt/main/media/bars.png\n.desc=Item at the lowest level of the hierarchy\n",
            "\t*\titem file type=image/png\n", "\t*\turgent file type=\n",
            "\t*\titem state=3\n.desc=State of the item, currently as a numeric enumeration"})
        EXPECT_NE(listing.find(lines), std::string::npos) << lines;
    const Json document = parsed(output_of("zelm_chctl -c list --json -o channel1"));
    EXPECT_EQ(document["audio"]["meter"], Json(Json::array{-18.5, -19.25}));
    EXPECT_EQ(document["behavior"]["recoverySpeed"], Json(37)) << "of the manifest";
    EXPECT_EQ(document["reporting"]["service"], Json(Json::array{"var", "run", "reporting-json"}));
    EXPECT_EQ(document["regions"]["item"]["media"]["mimeType"], Json("image/png"));
    EXPECT_EQ(document["regions"]["item"]["media"]["played"], Json(12));
    EXPECT_EQ(document["regions"]["urgent"]["media"]["leafPath"][3], Json("file"));
}

// Whatever can't be read falls back silently, but for these two.
TEST_F(Channel, WithABadAspectRatioOrMeterEndsTheListing)
{
    for (const std::string bad : {"video aspect ratio=16:9:1", "audio meter=-12.5,"}) {
        write_file(m_file, bad + "\n");
        const Outcome outcome = sh("exec zelm_chctl -c list -o channel1 --json");
        EXPECT_EQ(outcome.status, 134) << bad;
        EXPECT_EQ(outcome.out, "") << bad;
        EXPECT_NE(output_of("zelm_chctl -c list -o channel1").find("\t=\t" + bad + "\n"), std::string::npos);
    }
}

}  // namespace
