#include "schema/consume/consume_fbdev.hpp"
#include "schema/emit/emit_fbdev.hpp"

#include "unit/flat_schema_testing.hpp"

namespace {

const FlatKeys FBDEV = {{"autostart"}, {"autorestart", SWITCH, "0"}, {"driver", DRIVER, "fbdev"}, {"item"},
    {"force width"}, {"force height"}, {"device"}, {"output format"}, {"refresh rate"},
    {"take framebuffer console", TEXT, "-1"}, {"active"}, {"last notes"}, {"last error"}, {"using device"},
    {"using fbcon"}, {"autostart item"}};

TEST(Fbdev, EveryKeyGoesBothWays)
{
    EXPECT_EQ(FBDEV.size(), 16U);
    expect_emitted<EmitFbdev>(FBDEV);
    expect_consumed<ConsumeFbdev>(FBDEV);
}

}  // namespace
