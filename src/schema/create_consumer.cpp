#include "schema/create_consumer.hpp"

#include "schema/consume/consume_alsa.hpp"
#include "schema/consume/consume_blackmagic_decklink_sdi.hpp"
#include "schema/consume/consume_blackmagic_videohub.hpp"
#include "schema/consume/consume_channel.hpp"
#include "schema/consume/consume_drmkms.hpp"
#include "schema/consume/consume_fbdev.hpp"
#include "schema/consume/consume_internet_mpeg.hpp"
#include "schema/consume/consume_knox_rs16x16hb.hpp"
#include "schema/consume/consume_knox_rs8x8hb.hpp"
#include "schema/consume/consume_knox_rsii.hpp"
#include "schema/consume/consume_oss.hpp"
#include "schema/consume/consume_pulse_audio.hpp"
#include "schema/consume/consume_schedule_push.hpp"
#include "schema/consume/consume_shout_cast.hpp"
#include "schema/consume/consume_sierra_video_aspen_hdsdi.hpp"
#include "schema/consume/consume_trigger_rs232.hpp"
#include "schema/consume/consume_video_passthru.hpp"
#include "schema/consume/consume_video_passthru_v2.hpp"
#include "schema/consume/consume_x11.hpp"

namespace {

template <typename Consumer> std::shared_ptr<JsonConsumer> make(const std::string& text)
{
    return std::make_shared<Consumer>(text);
}

constexpr struct {
    const char* driver;
    std::shared_ptr<JsonConsumer> (*make)(const std::string& text);
} CONSUMERS[] = {
    {"alsa", make<ConsumeAlsa>},
    {"blackmagic_decklink_sdi", make<ConsumeBlackmagicDecklinkSdi>},
    {"blackmagic_videohub", make<ConsumeBlackmagicVideohub>},
    {"drmkms", make<ConsumeDrmkms>},
    {"fbdev", make<ConsumeFbdev>},
    {"internet_mpeg", make<ConsumeInternetMpeg>},
    {"knox_rs16x16hb", make<ConsumeKnoxRs16x16hb>},
    {"knox_rs8x8hb", make<ConsumeKnoxRs8x8hb>},
    {"knox_rsii", make<ConsumeKnoxRsii>},
    {"oss", make<ConsumeOss>},
    {"pulseaudio", make<ConsumePulseAudio>},
    {"schedule_push", make<ConsumeSchedulePush>},
    {"shoutcast", make<ConsumeShoutCast>},
    {"sierra_video_aspen_hdsdi", make<ConsumeSierraVideoAspenHdsdi>},
    {"trigger_rs232", make<ConsumeTriggerRs232>},
    {"video_passthru", make<ConsumeVideoPassthru>},
    {"video_passthru_v2", make<ConsumeVideoPassthruV2>},
    {"x11", make<ConsumeX11>},
};

}  // namespace

std::shared_ptr<JsonConsumer> createConsumer(const std::string& driver, const std::string& text)
{
    for (const auto& row : CONSUMERS)
        if (driver == row.driver)
            return row.make(text);
    return make<ConsumerChannel>(text);
}
