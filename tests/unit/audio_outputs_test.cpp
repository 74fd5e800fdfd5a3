#include "schema/consume/consume_alsa.hpp"
#include "schema/consume/consume_oss.hpp"
#include "schema/consume/consume_pulse_audio.hpp"
#include "schema/emit/emit_alsa.hpp"
#include "schema/emit/emit_oss.hpp"
#include "schema/emit/emit_pulse_audio.hpp"

#include "unit/flat_schema_testing.hpp"

namespace {

const FlatKeys ALSA = with_normalizer(
    {{"autostart"}, {"autorestart", SWITCH, "0"}, {"driver", DRIVER, "alsa"}, {"item"},
        {"audio volume", TEXT, "100"}, {"alsa output", TEXT, "default"}, {"audio rate"}, {"audio channels"},
        {"allow channel mapping", TEXT, "0"}, {"allow resampling", TEXT, "0"}},
    {{"active"}, {"active mixer controls"}, {"alsa buffer size"}, {"audio last error"}, {"autostart item"},
        {"audio last notes"}});

const FlatKeys OSS =
    with_normalizer({{"autostart"}, {"autorestart", SWITCH, "0"}, {"driver", DRIVER, "oss"}, {"item"},
                        {"audio volume", TEXT, "100"}, {"audio rate"}, {"audio channels"}, {"oss output"}},
        {{"active"}, {"oss buffer size"}, {"audio last error"}, {"autostart item"}});

const FlatKeys PULSE_AUDIO =
    with_normalizer({{"autostart"}, {"autorestart", SWITCH, "0"}, {"driver", DRIVER, "pulseaudio"}, {"item"},
                        {"audio volume", TEXT, "100"}, {"audio rate"}, {"audio channels"}},
        {{"active"}, {"audio last error"}, {"autostart item"}, {"audio last notes"}, {"pulseaudio sink"}});

TEST(AudioOutputs, EveryKeyGoesBothWays)
{
    EXPECT_EQ(ALSA.size(), 29U);
    expect_emitted<EmitAlsa>(ALSA);
    expect_consumed<ConsumeAlsa>(ALSA);
    EXPECT_EQ(OSS.size(), 25U);
    expect_emitted<EmitOss>(OSS);
    expect_consumed<ConsumeOss>(OSS);
    EXPECT_EQ(PULSE_AUDIO.size(), 25U);
    expect_emitted<EmitPulseAudio>(PULSE_AUDIO);
    expect_consumed<ConsumePulseAudio>(PULSE_AUDIO);
}

TEST(AudioOutputs, UnsetNumbersComeBackAsZeroAndNotAsTheirDefault)
{
    const struct {
        const char* key;
        const char* text;
        const char* after;
    } cases[] = {
        {"audio normalizer decay", "", "0"},
        {"audio normalizer minimum level", "", "0"},
        {"audio normalizer upper level", "", "0"},
        {"audio normalizer upper level 2", "", ""},
        {"audio normalizer upper level 2=", "-3", "nothing"},
        {"audio normalizer hard limit level 2=", "-3", "nothing"},
        {"audio normalizer map mode", "cubic", "cubic"},
        {"audio volume", "", ""},
    };
    for (const auto& row : cases) {
        EXPECT_EQ((after_trip<EmitAlsa, ConsumeAlsa>(row.key, row.text)), row.after) << row.key;
        EXPECT_EQ((after_trip<EmitOss, ConsumeOss>(row.key, row.text)), row.after) << row.key;
        EXPECT_EQ((after_trip<EmitPulseAudio, ConsumePulseAudio>(row.key, row.text)), row.after) << row.key;
    }
}

}  // namespace
