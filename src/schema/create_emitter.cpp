#include "schema/create_emitter.hpp"

#include "schema/emit/emit_alsa.hpp"
#include "schema/emit/emit_blackmagic_decklink_sdi.hpp"
#include "schema/emit/emit_blackmagic_videohub.hpp"
#include "schema/emit/emit_channel.hpp"
#include "schema/emit/emit_drmkms.hpp"
#include "schema/emit/emit_fbdev.hpp"
#include "schema/emit/emit_internet_mpeg.hpp"
#include "schema/emit/emit_knox_rs16x16hb.hpp"
#include "schema/emit/emit_knox_rs8x8hb.hpp"
#include "schema/emit/emit_knox_rsii.hpp"
#include "schema/emit/emit_oss.hpp"
#include "schema/emit/emit_pulse_audio.hpp"
#include "schema/emit/emit_schedule_push.hpp"
#include "schema/emit/emit_shout_cast.hpp"
#include "schema/emit/emit_sierra_video_aspen_hdsdi.hpp"
#include "schema/emit/emit_trigger_rs232.hpp"
#include "schema/emit/emit_video_passthru.hpp"
#include "schema/emit/emit_video_passthru_v2.hpp"
#include "schema/emit/emit_x11.hpp"

namespace {

template <typename Emitter> std::shared_ptr<EmitJson> make()
{
    return std::make_shared<Emitter>();
}

constexpr struct {
    const char* driver;
    std::shared_ptr<EmitJson> (*make)();
} EMITTERS[] = {
    {"alsa", make<EmitAlsa>},
    {"blackmagic_decklink_sdi", make<EmitBlackmagicDecklinkSdi>},
    {"blackmagic_videohub", make<EmitBlackmagicVideohub>},
    {"drmkms", make<EmitDrmkms>},
    {"fbdev", make<EmitFbdev>},
    {"internet_mpeg", make<EmitInternetMpeg>},
    {"knox_rs16x16hb", make<EmitKnoxRs16x16hb>},
    {"knox_rs8x8hb", make<EmitKnoxRs8x8hb>},
    {"knox_rsii", make<EmitKnoxRsii>},
    {"oss", make<EmitOss>},
    {"pulseaudio", make<EmitPulseAudio>},
    {"schedule_push", make<EmitSchedulePush>},
    {"shoutcast", make<EmitShoutCast>},
    {"sierra_video_aspen_hdsdi", make<EmitSierraVideoAspenHdsdi>},
    {"trigger_rs232", make<EmitTriggerRs232>},
    {"video_passthru", make<EmitVideoPassthru>},
    {"video_passthru_v2", make<EmitVideoPassthru2>},
    {"x11", make<EmitX11>},
};

}  // namespace

std::shared_ptr<EmitJson> createEmitter(const std::string& driver)
{
    for (const auto& row : EMITTERS)
        if (driver == row.driver)
            return row.make();
    return make<EmitChannel>();
}
