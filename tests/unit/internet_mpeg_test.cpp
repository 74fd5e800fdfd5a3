#include <gtest/gtest.h>

#include "schema/consume/consume_internet_mpeg.hpp"
#include "schema/create_consumer.hpp"
#include "schema/create_emitter.hpp"
#include "schema/emit/emit_internet_mpeg.hpp"
#include "unit/encoder_testing.hpp"

using json11::Json;

namespace {

constexpr char TOP[] = R"(
    autostart; autorestart=0; driver; item; mux delay; schedule parsing=0; audio volume=100; audio rate;
    audio channels; asi retry delay; epg event limit; divide by zero handling=1; audio normalizer attack=1;
    audio normalizer decay=100; audio normalizer minimum level=-24.000; audio normalizer lower level=-6.000;
    audio normalizer upper level=-3.000; audio normalizer upper level 2; audio normalizer hard limit level;
    audio normalizer hard limit level 2; audio normalizer bass filter=0; audio normalizer treble filter=0;
    audio normalizer sd-mode=0; audio normalizer enable=0; audio normalizer map mode; active;
    eia-608 caption status; autostart item; autostart item on network access)";

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
    pcr bitrate limits=1; packet bitrate limits=1; packet interleave=1; dvb, service type;
    dvb, service name; dvb, service provider; iso language; bitrate; buffer duration; debug file; enable=1;
    name; pat interval; pmt interval; pmt pid; program id; padding pid; audio pid; video pid; pcr fill=1;
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

constexpr struct {
    const char* name;
    const char* keys;
    std::size_t members;
} GROUPS[] = {
    {"audio", AUDIO, 25},
    {"video", VIDEO, 43},
    {"ps", PS, 14},
    {"ts", TS, 72},
    {"iptv", IPTV, 18},
};

// Every member of the document in the order in which a set applies them.
Leaves leaves()
{
    Leaves all;
    for (const std::string base : {"0", "1", "2"}) {
        const std::string prefix = "enc" + base + ", ";
        append(all, NUMBERED_ASI, {"enc", base, "asi", "0"}, prefix + "asi1, ");
        append(all, NUMBERED_ASI, {"enc", base, "asi", "1"}, prefix + "asi2, ");
        append(all, NUMBERED_ASI, {"enc", base, "asi", "2"}, prefix + "asi3, ");
        for (const auto& group : GROUPS)
            append(all, group.keys, {"enc", base, group.name}, prefix + group.name + ", ");
        append(all, ASI, {"enc", base}, prefix);
    }
    append(all, TOP, {}, "");
    return all;
}

TEST(InternetMpeg, TheDocumentHasItsShapeWhateverTheItemHas)
{
    const Json document = createEmitter("internet_mpeg")->emitJson();
    EXPECT_EQ(document.object_items().size(), 30U);
    ASSERT_EQ(document["enc"].array_items().size(), 3U);
    for (const Json& encoder : document["enc"].array_items()) {
        EXPECT_EQ(encoder.object_items().size(), 15U);
        for (const auto& group : GROUPS)
            EXPECT_EQ(encoder[group.name].object_items().size(), group.members) << group.name;
        ASSERT_EQ(encoder["asi"].array_items().size(), 3U);
        for (const Json& output : encoder["asi"].array_items())
            EXPECT_EQ(output.object_items().size(), 9U);
    }
    EXPECT_EQ(leaves().size(), 29U + 3 * (25 + 43 + 14 + 72 + 18 + 4 * 9));
}

TEST(InternetMpeg, EveryFlatKeyReachesItsMemberAndComesBackInOrder)
{
    const Pairs settings = told_apart(leaves());
    const Json document = emitted<EmitInternetMpeg>(settings);
    expect_members(document, leaves(), settings);
    EXPECT_EQ(consumed<ConsumeInternetMpeg>(document.dump()), settings);
    EXPECT_EQ(emitted<EmitInternetMpeg>(consumed<ConsumeInternetMpeg>(document.dump())), document);
}

TEST(InternetMpeg, UnsetKeysAreEmptyTextsAndComeBackAsEmptyValues)
{
    const Json document = emitted<EmitInternetMpeg>({});
    EXPECT_EQ(document, with_scalars(document, ""));
    EXPECT_EQ(consumed<ConsumeInternetMpeg>(document.dump()), same_value(leaves(), ""));
}

TEST(InternetMpeg, EveryMemberIsAText)
{
    const Json document = emitted<EmitInternetMpeg>({});
    EXPECT_EQ(consumed<ConsumeInternetMpeg>(with_scalars(document, nullptr).dump()), defaults(leaves()));
    EXPECT_EQ(
        consumed<ConsumeInternetMpeg>(with_scalars(document, true).dump()), same_value(leaves(), "true"));
    EXPECT_EQ(
        consumed<ConsumeInternetMpeg>(with_scalars(document, -2.5).dump()), same_value(leaves(), "-2.5"));
    EXPECT_EQ(emitted<EmitInternetMpeg>({{"autorestart", "1"}})["autorestart"], Json("1"));
}

void expect_pairs(std::initializer_list<std::pair<const char*, Pairs>> cases)
{
    for (const auto& [document, pairs] : cases) {
        const auto consumer = createConsumer("internet_mpeg", document);
        consumer->createItems();
        EXPECT_EQ(consumer->items(), pairs) << document;
    }
}

TEST(InternetMpeg, PartialDocumentsChangeOnlyWhatTheyName)
{
    Leaves asi_of_encoder_0;
    append(asi_of_encoder_0, ASI, {}, "enc0, ");
    Leaves ps_of_encoder_0;
    append(ps_of_encoder_0, PS, {}, "enc0, ps, ");
    expect_pairs({
        {"{}", {}},
        {R"({"enc": []})", {}},
        {R"({"enc": [{}, {}, {}]})", {}},
        {R"({"enc": [null, {"audio": {"rate": "48000"}}]})", {{"enc1, audio, rate", "48000"}}},
        {R"({"enc": [{"ts": {"atsc__vct": null}}, null, {"ps": {"vbr": null}}]})",
            {{"enc0, ts, atsc, vct", "terrestrial"}, {"enc2, ps, vbr", "1"}}},
        {R"({"enc": [null, null, null, {"audio": {"rate": "48000"}}], "item": "/one"})", {{"item", "/one"}}},
        {R"({"enc": [{"audio": null, "video": {"name": "hd"}, "iptv": {}}]})", {{"enc0, video, name", "hd"}}},
        {R"({"enc": [{"asi__index": null, "asi": null}]})", {{"enc0, asi, index", "-1"}}},
        {R"({"driver": "x11"})", {{"driver", "x11"}}},
        // What is no array has no encoders, whatever its members are called.
        {R"({"enc": {"0": {"audio": {"rate": "48000"}}}, "active": "1"})", {{"active", "1"}}},
        {R"({"enc": null, "active": "1"})", {{"active", "1"}}},
        {R"({"enc": "0", "active": "1"})", {{"active", "1"}}},
        // One level below a scalar every member exists and is null.
        {R"({"enc": [{"ps": 0}]})", defaults(ps_of_encoder_0)},
        {R"({"enc": [0]})", defaults(asi_of_encoder_0)},
    });
}

TEST(InternetMpeg, ANumberedAsiOutputHangsOnTheSameOutputOfTheEncoderWithItsNumber)
{
    Leaves second_of_encoder_1;
    append(second_of_encoder_1, NUMBERED_ASI, {}, "enc1, asi2, ");
    Pairs second_of_both = defaults(second_of_encoder_1);
    second_of_both.insert(second_of_both.begin(), {"enc0, asi2, path", "/a"});
    expect_pairs({
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
    });
}

}  // namespace
