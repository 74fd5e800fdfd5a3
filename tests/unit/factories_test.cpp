#include <cstdlib>
#include <cxxabi.h>
#include <gtest/gtest.h>
#include <memory>
#include <typeinfo>

#include "schema/create_consumer.hpp"
#include "schema/create_emitter.hpp"

namespace {

template <typename Schema> std::string class_of(const Schema& schema)
{
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(typeid(schema).name(), nullptr, nullptr, &status), &std::free);
    return status == 0 ? name.get() : "";
}

TEST(Factories, EveryDriverWordGetsItsClassesAndOthersTheChannels)
{
    const struct {
        const char* driver;
        const char* emitter;
        const char* consumer;
    } cases[] = {
        {"alsa", "EmitAlsa", "ConsumeAlsa"},
        {"blackmagic_decklink_sdi", "EmitBlackmagicDecklinkSdi", "ConsumeBlackmagicDecklinkSdi"},
        {"blackmagic_videohub", "EmitBlackmagicVideohub", "ConsumeBlackmagicVideohub"},
        {"drmkms", "EmitDrmkms", "ConsumeDrmkms"},
        {"fbdev", "EmitFbdev", "ConsumeFbdev"},
        {"internet_mpeg", "EmitInternetMpeg", "ConsumeInternetMpeg"},
        {"knox_rs16x16hb", "EmitKnoxRs16x16hb", "ConsumeKnoxRs16x16hb"},
        {"knox_rs8x8hb", "EmitKnoxRs8x8hb", "ConsumeKnoxRs8x8hb"},
        {"knox_rsii", "EmitKnoxRsii", "ConsumeKnoxRsii"},
        {"oss", "EmitOss", "ConsumeOss"},
        {"pulseaudio", "EmitPulseAudio", "ConsumePulseAudio"},
        {"schedule_push", "EmitSchedulePush", "ConsumeSchedulePush"},
        {"shoutcast", "EmitShoutCast", "ConsumeShoutCast"},
        {"sierra_video_aspen_hdsdi", "EmitSierraVideoAspenHdsdi", "ConsumeSierraVideoAspenHdsdi"},
        {"trigger_rs232", "EmitTriggerRs232", "ConsumeTriggerRs232"},
        {"video_passthru", "EmitVideoPassthru", "ConsumeVideoPassthru"},
        {"video_passthru_v2", "EmitVideoPassthru2", "ConsumeVideoPassthruV2"},
        {"x11", "EmitX11", "ConsumeX11"},
        {"", "EmitChannel", "ConsumerChannel"},
        {"channel", "EmitChannel", "ConsumerChannel"},
        {"newtek_ndi", "EmitChannel", "ConsumerChannel"},
        {"X11", "EmitChannel", "ConsumerChannel"},
        {"x11 ", "EmitChannel", "ConsumerChannel"},
        {"video-passthru", "EmitChannel", "ConsumerChannel"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(class_of(*createEmitter(row.driver)), row.emitter) << row.driver;
        EXPECT_EQ(class_of(*createConsumer(row.driver, "{}")), row.consumer) << row.driver;
    }
}

TEST(Factories, TheConsumerReadsTheTextItIsMadeOf)
{
    const std::shared_ptr<JsonConsumer> consumer = createConsumer("x11", R"({"video": {"rate": 15}})");
    EXPECT_EQ(consumer->document().size(), 1U);
    consumer->createItems();
    EXPECT_EQ(consumer->items(), (SettingValues{{"frame rate reduce", "15"}}));
}

}  // namespace
