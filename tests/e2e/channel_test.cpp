// A channel through the command line: its settings by JSON, its document, and what it shows of the media
// that it plays.
#include "e2e/document_testing.hpp"

namespace {

class Channel : public Appliance {
protected:
    void SetUp() override
    {
        Appliance::SetUp();
        output_of("zelm_chctl -c create -o channel1");
    }

    const std::string m_file = CHANNELS + "channel1";
};

TEST_F(Channel, WithoutSettingsShowsTheDefaultsOfItsManifest)
{
    expect_shown(document_of("zelm_chctl -c list -o channel1 --json"),
        parsed(R"({"name": "", "audio": {"rate": 48000, "normalizer": {"decay": 100}},
            "behavior": {"systemDelay": {"count": 1, "units": "seconds"}, "recoverySpeed": 37},
            "reporting": {"interval": 5, "service": ["var", "run", "reporting-json"]},
            "video": {"aspect": {"width": 4, "height": 3},
                "rate": {"numerator": 30000, "denominator": 1001, "kind": "interlaced bottom-field-first"}},
            "caption": {"conversion": {"enable": true, "force": false}},
            "regions": {"main": {"kind": "item"}, "music": {"policy": "if-no-audio", "enable": true}}})"),
        "defaults");
}

TEST_F(Channel, TakesADocumentIntoItsFile)
{
    write_file(m_file, "catch up speed=50\nfoo=bar\naudio normalizer bass filter=80\n"
                       "audio normalizer hard limit level=-2\n");
    output_of(R"(zelm_chctl -c set -o channel1 --json-out '{
        "name": "News",
        "behavior": {"autostart": true, "expirationDelay": {"count": 2.5, "units": "frames"},
            "recoverySpeed": null, "systemDelay": {}, "match": {"upconvertAudio": null}},
        "reporting": {"interval": 7.9, "service": ["var", "run", "log"], "lastReport": "none"},
        "audio": {"rate": 44100, "ducking": {"interval": null},
            "normalizer": {"enable": true, "passes": [{"minimum": -24.5, "maximum": null}, {"upper": null}],
                "filters": {"bass": null, "mapping": {"mode": "decibel", "intensity": 5}}}},
        "video": {"size": {"width": 1280, "height": 720}, "aspect": {"width": 16, "height": 9},
            "rate": {"numerator": 60000, "denominator": 1001, "kind": "progressive"}},
        "caption": {"renderEia608": null, "conversion": {"enable": true, "force": false}},
        "debug": {"cueStatus": {"scte35": "none"}},
        "regions": {"main": {"kind": "alerts", "part": "text"},
            "item": {"media": {"path": ["", "mnt", "a b.png"], "loop": true, "context": null},
                "video": {"enable": true, "rendering": false,
                    "geometry": {"position": {"x": 33.5, "y": 50}}}},
            "music": {"media": {"path": ["", "mnt", "tone.wav"]}, "policy": "if-no-audio"},
            "global": [{"audio": {"volume": 80}}, null, {"enable": true}]}}')");
    // The shared key of two video members stands twice, and so does a key of the normalizer. The keys of its
    // second pass end in "=".
    EXPECT_EQ(read_file(m_file), R"(#multiline
foo=bar
audio normalizer hard limit level=-2
channel name=News
autostart=1
expiration delay=2.5f
system delay=1s
match audio upconvert=1
reporting interval=7
reporting=/var/run/log
last report=none
audio rate=44100
audio normalizer enable=1
ducking time interval=0.300000
audio normalizer enable=1
audio normalizer minimum level=-24.5
audio normalizer upper level 2==-3
audio normalizer map mode=decibelm5
video width=1280
video height=720
video aspect ratio=16:9
video rate=60000:1001p
eia-608 render captions=None
eia-608 to cea-708 conversion=-1
scte-35 status=none
main layer=text
item=/mnt/a b.png
item loop=1
item context id=-1
item video enabled=1
item position=33.5 50
item align=center center
item video enabled=0
background music=/mnt/tone.wav
background music default policy=if-no-audio
global item 1 audio volume=80
)");
}

TEST_F(Channel, ShowsWhatItPlays)
{
    output_of("mkdir /mnt/main/media && cp /usr/share/tavorn4/samples/* /mnt/main/media");
    for (const std::string media : {"bars.png", "tone.wav"})
        output_of("/usr/bin/zelm_startitem --file /mnt/main/media/" + media + " --identify --create-meta");
    write_file(m_file, "channel name=News\nitem=/mnt/main/media/bars.png\nurgent=/no/such/file\n"
                       "background music=/mnt/main/media/tone.wav\neas av=/mnt/main/media/bars.png\n");
    start("zelm_chctl", "channel1");

    const std::string listing = output_of("zelm_chctl -c list --desc");
    for (const char* const lines : {
             "channel1{\n",
             "\t?\taudio rate=48000\n",
             "\t*\taudio meter=-18.5,-19.25\n.desc=Level of each audio channel in dBFS\n.flags=!s:\n"
             ".ui={\"json_type\": \"array\"}\n",
             "\t*\titem lowest level=/mnt/main/media/bars.png\n"
             ".desc=Item at the lowest level of the hierarchy\n",
             "\t*\titem lowest level file type=image/png\n",
             "\t*\tbackground music file type=audio/x-wav\n",
             "\t*\turgent file type=\n",
             "\t?\tvideo rate=30000:1001li bff\n.desc=Video frame/field rate. Typical: '30000/1001i bff'",
         })
        EXPECT_NE(listing.find(lines), std::string::npos) << lines;
    expect_shown(document_of("zelm_chctl -c list --json -o channel1"),
        parsed(R"({"name": "News", "audio": {"meter": [-18.5, -19.25], "rate": 48000},
            "reporting": {"lastReport": "ok"},
            "debug": {"active": "1", "activeItem": "/mnt/main/media/bars.png", "realtimeStatus": "ok",
                "captionStatus": {"eia608": "CC1", "cea708": "service 1", "scte20": "none"},
                "cueStatus": {"scte35": "splice_null"}, "sourceTimestampStatus": "PTS 1126125"},
            "regions": {"main": {"kind": "item"},
                "item": {"audio": {"rendering": true, "volume": 100}, "video": {"rendering": true},
                    "media": {"path": ["", "mnt", "main", "media", "bars.png"], "mimeType": "image/png",
                        "leafPath": ["", "mnt", "main", "media", "bars.png"], "leafMimeType": "image/png",
                        "context": 7, "played": 12, "state": "3"}},
                "urgent": {"media": {"mimeType": "", "leafPath": ["", "no", "such", "file"]}},
                "music": {"media": {"mimeType": "audio/x-wav", "leafMimeType": "audio/x-wav", "played": 12}},
                "alerts": {"media": {"media": {"mimeType": "", "context": 7}},
                    "text": {"media": {"context": null}}},
                "global": [{"media": {"path": [""], "context": null}}, {}, {}, {}, {}, {}, {}, {}]}})"),
        "live");
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
    write_file(
        m_file, "video aspect ratio=/\nvideo rate=:\nvideo size=x\nexpiration delay=s\nsystem delay=\n");
    EXPECT_NE(output_of("zelm_chctl -c list -o channel1 --json"), "");
}

}  // namespace
