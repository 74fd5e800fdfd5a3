// A channel's document through the command line.
#include "e2e/sandbox_testing.hpp"

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
    EXPECT_EQ(read_file(m_file),
        "#multiline\nfoo=bar\nsystem delay=1s\naudio normalizer enable=1\n"
        "audio normalizer enable=1\naudio normalizer upper level 2==-3\nitem=/mnt/a b.png\n"
        "item video enabled=1\nitem align=center center\n");
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
