#include "schema/consume/consume_trigger_rs232.hpp"
#include "schema/emit/emit_trigger_rs232.hpp"

#include "unit/flat_schema_testing.hpp"

namespace {

const FlatMembers MEMBERS = {{"port"}, {"poll interval"}, {"set dtr"}, {"set rts"},
    {"load drivers", FlatMember::TEXT, "1"}, {"ri signal name"}, {"ri signal invert"}, {"cts signal name"},
    {"cts signal invert"}, {"dsr signal name"}, {"dsr signal invert"}, {"dcd signal name"},
    {"dcd signal invert"}, {"channels"}, {"autostart"}, {"offline"}};

TEST(TriggerRs232, WritesEveryMember)
{
    expect_writes<EmitTriggerRs232>(MEMBERS);
}

TEST(TriggerRs232, ReadsEveryMember)
{
    expect_reads<ConsumeTriggerRs232>(MEMBERS);
}

TEST(TriggerRs232, TakesNoDriverFromADocument)
{
    EXPECT_EQ(consumed<ConsumeTriggerRs232>(R"({"driver": "trigger_rs232"})"), Pairs{});
}

}  // namespace
