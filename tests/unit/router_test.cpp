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

FlatMembers network_members(const char* driver)
{
    return {{"stay resident"}, {"autostart"}, {"driver", FlatMember::CONSTANT, driver}, {"ip address"},
        {"port"}, {"inputs"}, {"outputs"}, {"offline"}};
}

FlatMembers serial_members(const char* driver)
{
    return {{"stay resident"}, {"autostart"}, {"driver", FlatMember::CONSTANT, driver}, {"port"},
        {"serial port baud rate"}, {"inputs"}, {"outputs"}, {"route delay"}, {"offline"}};
}

TEST(Routers, EveryNetworkModelWritesItsDocument)
{
    expect_writes<EmitBlackmagicVideohub>(network_members("blackmagic_videohub"));
    expect_writes<EmitSierraVideoAspenHdsdi>(network_members("sierra_video_aspen_hdsdi"));
}

TEST(Routers, EveryNetworkModelReadsItsDocument)
{
    expect_reads<ConsumeBlackmagicVideohub>(network_members("blackmagic_videohub"));
    expect_reads<ConsumeSierraVideoAspenHdsdi>(network_members("sierra_video_aspen_hdsdi"));
}

TEST(Routers, EverySerialModelWritesItsDocument)
{
    expect_writes<EmitKnoxRs16x16hb>(serial_members("knox_rs16x16hb"));
    expect_writes<EmitKnoxRs8x8hb>(serial_members("knox_rs8x8hb"));
    expect_writes<EmitKnoxRsii>(serial_members("knox_rsii"));
}

TEST(Routers, EverySerialModelReadsItsDocument)
{
    expect_reads<ConsumeKnoxRs16x16hb>(serial_members("knox_rs16x16hb"));
    expect_reads<ConsumeKnoxRs8x8hb>(serial_members("knox_rs8x8hb"));
    expect_reads<ConsumeKnoxRsii>(serial_members("knox_rsii"));
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
