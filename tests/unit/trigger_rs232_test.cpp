#include "schema/consume/consume_trigger_rs232.hpp"
#include "schema/emit/emit_trigger_rs232.hpp"

#include "unit/flat_schema_testing.hpp"

namespace {

const FlatKeys KEYS = {{"port"}, {"poll interval"}, {"set dtr"}, {"set rts"}, {"load drivers", TEXT, "1"},
    {"ri signal name"}, {"ri signal invert"}, {"cts signal name"}, {"cts signal invert"}, {"dsr signal name"},
    {"dsr signal invert"}, {"dcd signal name"}, {"dcd signal invert"}, {"channels"}, {"autostart"},
    {"offline"}};

TEST(TriggerRs232, EveryKeyGoesBothWays)
{
    EXPECT_EQ(KEYS.size(), 16U);
    expect_emitted<EmitTriggerRs232>(KEYS);
    expect_consumed<ConsumeTriggerRs232>(KEYS);
}

TEST(TriggerRs232, TakesNoDriverFromADocument)
{
    EXPECT_EQ(consumed<ConsumeTriggerRs232>(R"({"driver": "trigger_rs232"})"), Pairs{});
}

}  // namespace
