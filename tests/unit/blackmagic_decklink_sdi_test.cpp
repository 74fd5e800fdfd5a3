#include "schema/consume/consume_blackmagic_decklink_sdi.hpp"
#include "schema/emit/emit_blackmagic_decklink_sdi.hpp"

#include "unit/flat_schema_testing.hpp"

namespace {

const FlatKeys DECKLINK = with_normalizer(
    {{"autostart"}, {"autorestart", SWITCH, "0"}, {"driver", DRIVER, "blackmagic_decklink_sdi"}, {"item"},
        {"audio volume", TEXT, "100"}, {"audio bits"}, {"audio channels"}, {"audio convert channels"},
        {"audio out channel 01"}, {"audio out channel 02"}, {"audio out channel 03"},
        {"audio out channel 04"}, {"audio out channel 05"}, {"audio out channel 06"},
        {"audio out channel 07"}, {"audio out channel 08"}, {"audio out channel 09"},
        {"audio out channel 10"}, {"audio out channel 11"}, {"audio out channel 12"},
        {"audio out channel 13"}, {"audio out channel 14"}, {"audio out channel 15"},
        {"audio out channel 16"}, {"card index", TEXT, "-1"}, {"enable audio", SWITCH, "1"},
        {"eia-608 line 21 first/odd"}, {"eia-608 line 21 second/even"},
        {"eia-608 line 21 first/odd use vanc"}, {"eia-608 line 21 second/even use vanc"},
        {"eia-608 line 21 first/odd scanline"}, {"eia-608 line 21 second/even scanline"}, {"force width"},
        {"force height"}, {"force fps"}, {"10-bit yuv"}, {"vanc test", SWITCH_OR_NULL},
        {"enable vanc", SWITCH_OR_NULL}, {"vanc first line"}, {"vanc first line 2nd field", SWITCH_OR_NULL},
        {"vanc data packet format"}, {"enable vanc eia-608", SWITCH_OR_NULL},
        {"enable vanc cea-708", SWITCH_OR_NULL}, {"vanc eia-608 split across fields"},
        {"vanc cea-708 split across fields"}, {"vanc one packet per line"}, {"resize video"},
        {"resize video to"}, {"vanc cea-708 encode ideal framerate", SWITCH_OR_NULL}, {"max video delay"},
        {"no sdk disablevideooutput", SWITCH_OR_NULL}, {"no sdk disableaudiooutput", SWITCH_OR_NULL},
        {"aggressive shutdown", SWITCH_OR_NULL}, {"decklink enable sdi output", SWITCH_OR_NULL},
        {"decklink enable hdmi output", SWITCH_OR_NULL},
        {"decklink enable optical sdi output", SWITCH_OR_NULL},
        {"decklink enable component output", SWITCH_OR_NULL},
        {"decklink enable composite output", SWITCH_OR_NULL},
        {"decklink enable s-video output", SWITCH_OR_NULL}, {"auto restart on stuck audio", SWITCH, "1"},
        {"auto restart if no devices", TEXT, "0"}, {"vanc horizontal offset"},
        {"use sdk configuration interface"}, {"enable concurrent init", SWITCH, "-1"}},
    {{"active"}, {"last notes"}, {"last error"}, {"using device"}, {"eia-608 caption status"},
        {"autostart item"}});

TEST(BlackmagicDecklinkSdi, EveryKeyGoesBothWays)
{
    EXPECT_EQ(DECKLINK.size(), 83U);
    expect_emitted<EmitBlackmagicDecklinkSdi>(DECKLINK);
    expect_consumed<ConsumeBlackmagicDecklinkSdi>(DECKLINK);
}

TEST(BlackmagicDecklinkSdi, ATripThroughTheDocumentLosesWhatItsTypesCannotHold)
{
    const struct {
        const char* key;
        const char* text;
        const char* after;
    } cases[] = {
        {"enable concurrent init", "-1", "0"},
        {"enable concurrent init", "", "0"},
        {"enable concurrent init", "1", "1"},
        {"vanc first line 2nd field", "21", "0"},
        {"vanc first line 2nd field", "1", "1"},
        {"vanc first line 2nd field", "", ""},
        {"vanc first line", "21", "21"},
        {"10-bit yuv", "-1", "-1"},
        {"enable audio", "", "0"},
        {"card index", "", ""},
        {"audio normalizer upper level", "", "0"},
    };
    for (const auto& row : cases)
        EXPECT_EQ((after_trip<EmitBlackmagicDecklinkSdi, ConsumeBlackmagicDecklinkSdi>(row.key, row.text)),
            row.after)
            << row.key << "=" << row.text;
}

}  // namespace
