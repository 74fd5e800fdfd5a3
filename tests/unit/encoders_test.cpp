// The stream encoders, whose schemas are keys of three encoders and of the item.
#include "unit/schema_rows.hpp"

using json11::Json;

namespace {

constexpr char AUDIO[] = R"(
    encoder; rate; channels; bitrate; min bitrate; max bitrate; quality=80; vbr quality=80; highpass;
    lowpass; mp2, channel mode; mp3, channel mode; enable=1; copyright=0; original=1; crc=0; debug file=0;
    mp3, strict iso=0; mp3, bit reservoir=1; aac, object type=low; name; ac3, dialog normalization=-31;
    active; last error; last notes)";

constexpr char VIDEO[] = R"(
    h.264 aud; encoder; closed gop; chroma format; bitrate; min bitrate; max bitrate; bitrate tolerance;
    gop size; b frames; enable=1; debug status; debug file; reference frames; name; buffer size;
    motion estimation range; temporal complexity masking; spatial complexity masking;
    constant bitrate per frame; remove trailing zeros; p masking; noise reduction; minimum quant;
    maximum quant; maximum threads; eia-608 on p-frames; enable eia-608; enable eia-608 gop delay;
    enable cea-708; h.264 preset=veryfast; h.264 profile=main; drop frame for bitrate limit; resize;
    resize deinterlace; interlaced motion estimation; cpu threshhold; h.264 b-slice multithreading;
    enable h.264 nal hrd; frame rate limit; active; last error; last notes)";

constexpr char PS[] = R"(
    bitrate; buffer duration; debug file; disable sector continuity; enable=1; name; reset interval;
    sector size; system delay; audio system delay; vbr=1; active; last error; last notes)";

constexpr char TS[] = R"(
    standard; always transmit scr; active mux status; atsc, channel name; atsc, mgt; atsc, mgt interval;
    atsc, vct=terrestrial; atsc, virtual channel; dvb, nit; dvb, network name; dvb, network id;
    dvb, original network id; dvb, network private data spec; dvb, logical channel number;
    pcr bitrate limits=1; packet bitrate limits=1; packet interleave=1; dvb, service type; dvb, service name;
    dvb, service provider; iso language; bitrate; buffer duration; debug file; enable=1; name; pat interval;
    pmt interval; pmt pid; program id; padding pid; audio pid; video pid; pcr fill=1;
    pcr interval tolerance=0.000; reset interval; scr interval; sector size; system delay;
    timestamps are absolute=0; timestamp start=0; audio system delay; transport stream id;
    pcr per video frame=1; ac-3 mux form; ac-3 registration descriptor; ac-3 descriptor tag; vbr=0;
    enable atsc epg; enable dvb epg; program clock reference; padding packet fill bit; video stream mode=0;
    audio stream mode=0; aac at 1 mbit=0; rtmp push enable=0; rtmp push backup url; rtmp push url;
    rtmp push key; rtmp push active; second rtmp push enable=0; second rtmp push backup url;
    second rtmp push url; second rtmp push key; second rtmp push active; hls enable=0;
    hls segment duration=10; recording active; hls active; active; last error; last notes)";

constexpr char IPTV[] = R"(
    enable=0; enable ip=1; multicast loopback; ip protocol=rtp; ip source; ip target=239.1.1.1;
    ip target port=1234; ip ttl=1; ip xmit buffer; mtu; skip null=0; 2nd thread output=1; dont fragment=1;
    ip priority=1; ip dont route=0; active; last error; last notes)";

constexpr char ASI[] = R"(
    asi, enable=0; asi, use hw clock=1; asi, bitrate; asi, path; asi, index=-1; asi, driver; asi, active;
    asi, last error; asi, last notes)";

constexpr char NUMBERED_ASI[] = R"(
    enable=0; use hw clock=1; bitrate; path; index=-1; driver; active; last error; last notes)";

constexpr char MPEG_TOP[] = R"(
    autostart; autorestart=0; driver; item; mux delay; schedule parsing=0; audio volume=100; audio rate;
    audio channels; asi retry delay; epg event limit; divide by zero handling=1; audio normalizer attack=1;
    audio normalizer decay=100; audio normalizer minimum level=-24.000; audio normalizer lower level=-6.000;
    audio normalizer upper level=-3.000; audio normalizer upper level 2; audio normalizer hard limit level;
    audio normalizer hard limit level 2; audio normalizer bass filter=0; audio normalizer treble filter=0;
    audio normalizer sd-mode=0; audio normalizer enable=0; audio normalizer map mode; active;
    eia-608 caption status; autostart item; autostart item on network access)";

constexpr char SHOUTCAST_TOP[] = R"(
    autostart; autorestart:switch=0; driver:driver/text; item)";
constexpr char SHOUTCAST_TOP_BEHIND_ENCODERS[] = R"(
    audio rate; audio channels:text; audio volume:text=100; audio normalizer attack:integer=1;
    audio normalizer decay:integer=100; audio normalizer minimum level:number=-24.000000;
    audio normalizer lower level:number=-6; audio normalizer upper level:number=-3;
    audio normalizer upper level 2:number?; audio normalizer hard limit level:number?;
    audio normalizer hard limit level 2:number?; audio normalizer bass filter:integer=0;
    audio normalizer treble filter:integer=0; audio normalizer sd-mode:switch=0;
    audio normalizer enable:switch=0; audio normalizer map mode; active:switch?; autostart item)";

TEST(ShoutCast, EveryKeyGoesBothWays)
{
    Rows encoders;
    for (const std::string base : {"0", "1", "2"})
        encoders = encoders + rows(AUDIO, "text", {"enc", base}, "enc" + base + ", ");
    // The names of the codecs' own members are read with one underscore.
    for (KeyRow& row : encoders)
        if (const std::size_t at = row.path.back().find("__"); at != std::string::npos)
            row.read_path.back().erase(at, 1);
    const Rows keys = rows(SHOUTCAST_TOP) + encoders + rows(SHOUTCAST_TOP_BEHIND_ENCODERS);
    expect_written("shoutcast", keys, unset("shoutcast", keys));
    expect_read("shoutcast", keys);
}

// Every member of internet_mpeg's document in the order in which a set applies them.
Rows mpeg_rows()
{
    Rows all;
    for (const std::string base : {"0", "1", "2"}) {
        const std::string prefix = "enc" + base + ", ";
        for (const int asi : {0, 1, 2})
            all = all + rows(NUMBERED_ASI, "text", {"enc", base, "asi", std::to_string(asi)},
                            prefix + "asi" + std::to_string(asi + 1) + ", ");
        const std::pair<const char*, const char*> groups[] = {
            {"audio", AUDIO}, {"video", VIDEO}, {"ps", PS}, {"ts", TS}, {"iptv", IPTV}};
        for (const auto& [name, list] : groups)
            all = all + rows(list, "text", {"enc", base, name}, prefix + name + ", ");
        all = all + rows(ASI, "text", {"enc", base}, prefix);
    }
    return all + rows(MPEG_TOP, "text");
}

TEST(InternetMpeg, EveryFlatKeyReachesItsMemberAndComesBackInOrder)
{
    const Rows keys = mpeg_rows();
    EXPECT_EQ(emitted("internet_mpeg", {}), unset("internet_mpeg", keys));
    Pairs settings;
    Json document;
    for (const KeyRow& row : keys) {
        settings.emplace_back(row.key, " value of " + row.key);
        document = with(document, row.path, settings.back().second);
    }
    EXPECT_EQ(emitted("internet_mpeg", settings), document);
    EXPECT_EQ(consumed("internet_mpeg", document.dump()), settings);
}

TEST(InternetMpeg, EveryMemberIsAText)
{
    const std::pair<Json, const char*> cases[] = {
        {"", ""}, {true, "true"}, {-2.5, "-2.5"}, {nullptr, nullptr}};
    for (const auto& [value, text] : cases) {
        Pairs expected;
        Json document;
        for (const KeyRow& row : mpeg_rows()) {
            document = with(document, row.path, value);
            expected.emplace_back(row.key, text ? text : row.of_null);
        }
        EXPECT_EQ(consumed("internet_mpeg", document.dump()), expected) << value.dump();
    }
}

Pairs nulls(const char* list, const char* prefix)
{
    Pairs pairs;
    for (const KeyRow& row : rows(list, "text"))
        pairs.emplace_back(prefix + row.key, row.of_null);
    return pairs;
}

TEST(Encoders, DocumentsChangeOnlyWhatTheyName)
{
    const struct {
        const char* driver;
        const char* document;
        Pairs pairs;
    } cases[] = {
        {"shoutcast", R"({"enc": [{"rate": "1"}, null, {"rate": "3"}]})",
            {{"enc0, rate", "1"}, {"enc2, rate", "3"}}},
        {"shoutcast", R"({"enc": [{}, {}, {}, {"rate": "4"}]})", {}},
        {"shoutcast", R"({"enc": {"0": {"rate": "1"}}})", {}},
        {"shoutcast", R"({"enc": null, "item": "/one"})", {{"item", "/one"}}},
        {"internet_mpeg", R"({"enc": []})", {}},
        {"internet_mpeg", R"({"enc": [{}, {}, {}]})", {}},
        {"internet_mpeg", R"({"enc": [null, {"audio": {"rate": "48000"}}]})",
            {{"enc1, audio, rate", "48000"}}},
        {"internet_mpeg", R"({"enc": [{"ts": {"atsc__vct": null}}, null, {"ps": {"vbr": null}}]})",
            {{"enc0, ts, atsc, vct", "terrestrial"}, {"enc2, ps, vbr", "1"}}},
        {"internet_mpeg", R"({"enc": [null, null, null, {"audio": {"rate": "48000"}}], "item": "/one"})",
            {{"item", "/one"}}},
        {"internet_mpeg", R"({"enc": [{"audio": null, "video": {"name": "hd"}, "iptv": {}}]})",
            {{"enc0, video, name", "hd"}}},
        {"internet_mpeg", R"({"enc": [{"asi__index": null, "asi": null}]})", {{"enc0, asi, index", "-1"}}},
        // What is no array has no encoders, whatever its members are called.
        {"internet_mpeg", R"({"enc": {"0": {"audio": {"rate": "48000"}}}, "active": "1"})",
            {{"active", "1"}}},
        {"internet_mpeg", R"({"enc": null, "active": "1"})", {{"active", "1"}}},
        {"internet_mpeg", R"({"enc": "0", "active": "1"})", {{"active", "1"}}},
        // One level below a scalar every member exists and is null.
        {"internet_mpeg", R"({"enc": [{"ps": 0}]})", nulls(PS, "enc0, ps, ")},
        {"internet_mpeg", R"({"enc": [0]})", nulls(ASI, "enc0, ")},
    };
    for (const auto& row : cases)
        EXPECT_EQ(consumed(row.driver, row.document), row.pairs) << row.driver << row.document;
}

TEST(InternetMpeg, ANumberedAsiOutputHangsOnTheSameOutputOfTheEncoderWithItsNumber)
{
    Pairs second_of_both = nulls(NUMBERED_ASI, "enc1, asi2, ");
    second_of_both.insert(second_of_both.begin(), {"enc0, asi2, path", "/a"});
    const std::pair<const char*, Pairs> cases[] = {
        // Encoder 1 has no second output, or is not there: neither encoder 0 nor 2 sets theirs.
        {R"({"enc": [{"asi": [null, {"path": "/a"}]}]})", {}},
        {R"({"enc": [{"asi": [null, {"path": "/a"}]}, null]})", {}},
        {R"({"enc": [{"asi": [null, {"path": "/a"}]}, {}]})", {}},
        {R"({"enc": [{"asi": [null, {"path": "/a"}]}, {"asi": [{}]}]})", {}},
        {R"({"enc": [{"asi": [{}, {"path": "/a"}]}, {"asi": [{}, null]}, {"asi": [{}, {"path": "/c"}]}]})",
            {}},
        // Its own output is enough for the others.
        {R"({"enc": [{"asi": [null, {"path": "/a"}]}, {"asi": [null, {}]}, {"asi": [null, {"path": "/c"}]}]})",
            {{"enc0, asi2, path", "/a"}, {"enc2, asi2, path", "/c"}}},
        {R"({"enc": [{"asi": [null, {"path": "/a"}]}, {"asi": [null, 0]}]})", second_of_both},
        // The first output hangs on encoder 0, the third on encoder 2.
        {R"({"enc": [{"asi": [{"path": "/a"}, null, {"path": "/b"}]}, {"asi": [{"path": "/c"}]}]})",
            {{"enc0, asi1, path", "/a"}, {"enc1, asi1, path", "/c"}}},
        {R"({"enc": [null, {"asi": [{"path": "/a"}, null, {"path": "/b"}]}, {"asi": [null, null, {}]}]})",
            {{"enc1, asi3, path", "/b"}}},
        {R"({"enc": [{"asi": [{"index": null}, {}, {}, {"index": "3"}]}]})", {{"enc0, asi1, index", "-1"}}},
    };
    for (const auto& [document, pairs] : cases)
        EXPECT_EQ(consumed("internet_mpeg", document), pairs) << document;
}

}  // namespace
