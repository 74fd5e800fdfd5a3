#include "schema/consume/consume_blackmagic_videohub.hpp"
#include "schema/consume/consume_knox_rs16x16hb.hpp"
#include "schema/consume/consume_knox_rs8x8hb.hpp"
#include "schema/consume/consume_knox_rsii.hpp"
#include "schema/consume/consume_sierra_video_aspen_hdsdi.hpp"
#include "schema/emit/emit_blackmagic_videohub.hpp"
#include "schema/emit/emit_knox_rs16x16hb.hpp"
#include "schema/emit/emit_knox_rs8x8hb.hpp"
#include "schema/emit/emit_knox_rsii.hpp"
#include "schema/emit/emit_sierra_video_aspen_hdsdi.hpp"

#include "unit/flat_schema_testing.hpp"

namespace {

FlatKeys network_keys(const char* driver)
{
    return {{"stay resident"}, {"autostart"}, {"driver", DRIVER, driver}, {"ip address"}, {"port"},
        {"inputs"}, {"outputs"}, {"offline"}};
}

FlatKeys serial_keys(const char* driver)
{
    return {{"stay resident"}, {"autostart"}, {"driver", DRIVER, driver}, {"port"}, {"serial port baud rate"},
        {"inputs"}, {"outputs"}, {"route delay"}, {"offline"}};
}

template <typename Emitter, typename Consumer> void expect_both_ways(const FlatKeys& keys)
{
    expect_emitted<Emitter>(keys);
    expect_consumed<Consumer>(keys);
}

TEST(Routers, EveryKeyOfEveryModelGoesBothWays)
{
    expect_both_ways<EmitBlackmagicVideohub, ConsumeBlackmagicVideohub>(network_keys("blackmagic_videohub"));
    expect_both_ways<EmitSierraVideoAspenHdsdi, ConsumeSierraVideoAspenHdsdi>(
        network_keys("sierra_video_aspen_hdsdi"));
    expect_both_ways<EmitKnoxRs16x16hb, ConsumeKnoxRs16x16hb>(serial_keys("knox_rs16x16hb"));
    expect_both_ways<EmitKnoxRs8x8hb, ConsumeKnoxRs8x8hb>(serial_keys("knox_rs8x8hb"));
    expect_both_ways<EmitKnoxRsii, ConsumeKnoxRsii>(serial_keys("knox_rsii"));
}

TEST(Routers, ADocumentCannotChangeTheModelNorUseTheOtherShapesMembers)
{
    EXPECT_EQ(consumed<ConsumeKnoxRsii>(R"({"driver": "alsa"})"), (Pairs{{"driver", "knox_rsii"}}));
    EXPECT_EQ(consumed<ConsumeKnoxRsii>(R"({"ip_address": "10.0.0.1"})"), Pairs{});
    EXPECT_EQ(
        consumed<ConsumeBlackmagicVideohub>(R"({"route_delay": "5", "port": null})"), (Pairs{{"port", ""}}));
    EXPECT_EQ(consumed<ConsumeBlackmagicVideohub>("{}"), Pairs{});
}

}  // namespace
