#include "schema/consume/consume_video_passthru.hpp"
#include "schema/consume/consume_video_passthru_v2.hpp"
#include "schema/emit/emit_video_passthru.hpp"
#include "schema/emit/emit_video_passthru_v2.hpp"

#include "unit/flat_schema_testing.hpp"

namespace {

FlatKey text(const char* flat_key, const char* of_null = "")
{
    return {flat_key, TEXT, of_null};
}

const FlatKeys KEYS = {text("driver"), text("input"), text("input index"), text("interface"),
    text("pixel format"), text("standard"), text("width"), text("height"), text("rate"), text("system delay"),
    text("expiration delay"), text("buffers"), text("aspect ratio"), text("device index"), text("method"),
    text("stay resident", "0"), text("auto video shutdown", "1"), text("url"), text("audio interface"),
    text("audio device index"), text("alsa device"), text("audio rate"), text("audio channels"),
    text("enable mpeg output", "1"), text("2 encoding"), text("encode mpeg-2 video bitrate"),
    text("encode mpeg-2 audio bitrate"), text("force field order", "0"), text("10-bit yuv"),
    text("line 21", "1"), text("eia-608 vanc", "1"), text("cea-708 vanc", "1"),
    text("mpeg source enable cc", "1"), text("audio boost"), text("sdi active picture offset"),
    text("vbi scanline adjust"), text("force mpeg pes retranscode"), text("force mpeg audio retranscode"),
    text("force mpeg video retranscode"), text("sdi audio full scale", "1"),
    text("decklink black output during capture", "1"),
    text("decklink direct passthrough during capture", "0"), text("mpeg cpu threshhold"),
    text("tuner frequency"), text("use sdk configuration interface"), text("background music"),
    text("2nd thread writing", "1"), text("offline"), text("video flag status, no signal, detect", "1"),
    text("video flag status, black picture, detect", "0"),
    text("video flag status, blue picture, detect", "0"), text("video flag status, no audio, detect", "1"),
    text("video flag status, still picture, detect", "0"), text("video flag status, no signal, enable", "0"),
    text("video flag status, black picture, enable", "0"),
    text("video flag status, blue picture, enable", "0"), text("video flag status, no audio, enable", "0"),
    text("video flag status, still picture, enable", "0"), text("video flag status, no signal, time", "30"),
    text("video flag status, black picture, time", "30"), text("video flag status, blue picture, time", "30"),
    text("video flag status, no audio, time", "30"), text("video flag status, still picture, time", "30"),
    text("video flag status, no signal, force"), text("video flag status, black picture, force"),
    text("video flag status, blue picture, force"), text("video flag status, no audio, force"),
    text("video flag status, still picture, force"), text("video flag status, no signal"),
    text("video flag status, black picture"), text("video flag status, blue picture"),
    text("video flag status, no audio"), text("video flag status, still picture"),
    text("video flag status, no audio, active level"),
    text("video flag status, black picture, luma threshhold", "8"),
    text("video flag status, black picture, chroma threshhold", "12"),
    text("video flag status, black picture, color", "#000000"),
    text("video flag status, blue picture, luma threshhold", "16"),
    text("video flag status, blue picture, chroma threshhold", "24"),
    text("video flag status, blue picture, color", "#0000e0"),
    text("video flag status, no audio, detection threshhold", "-25.00"),
    text("video flag status, still picture, luma threshhold", "8"),
    text("video flag status, still picture, chroma threshhold", "12"), text("active", "                "),
    text("active source", "         "), text("last error"), text("last notes"),
    text("eia-608 caption status"), text("mpeg ts program"), text("match source", "0"),
    text("match audio upconvert", "1"), text("shared memory limit"), text("ip buffer size"),
    text("audio sync adjust"), text("thread limit")};

TEST(VideoPassthru, BothVersionsWriteAllMembersAsTexts)
{
    EXPECT_EQ(KEYS.size(), 95U);
    expect_emitted<EmitVideoPassthru>(KEYS);
    expect_emitted<EmitVideoPassthru2>(KEYS);
}

TEST(VideoPassthru, BothVersionsReadTheSamePairsInTheSameOrder)
{
    expect_consumed<ConsumeVideoPassthru>(KEYS);
    expect_consumed<ConsumeVideoPassthruV2>(KEYS);
}

TEST(VideoPassthru, OddMembersStayAsTheyAre)
{
    const struct {
        const char* document;
        Pairs pairs;
    } cases[] = {
        {R"({"driver": "x"})", {{"driver", "x"}}},
        {R"({"_2nd_thread_writing": null, "_10_bit_yuv": "1", "_2_encoding": "0"})",
            {{"2 encoding", "0"}, {"10-bit yuv", "1"}, {"2nd thread writing", "1"}}},
        {R"({"2_encoding": "0", "2 encoding": "0"})", {}},
        {R"({"active": null, "active_source": null})",
            {{"active", std::string(16, ' ')}, {"active source", std::string(9, ' ')}}},
        {R"({"video_flag_status__no_audio__detection_threshhold": null})",
            {{"video flag status, no audio, detection threshhold", "-25.00"}}},
        {R"({"mpeg_cpu_threshold": "50", "mpeg_cpu_threshhold": "60"})", {{"mpeg cpu threshhold", "60"}}},
    };
    for (const auto& row : cases)
        EXPECT_EQ(consumed<ConsumeVideoPassthru>(row.document), row.pairs) << row.document;
}

}  // namespace
