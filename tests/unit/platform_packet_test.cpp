#include "platform/packet.hpp"

#include <cstring>
#include <gtest/gtest.h>

TEST(Packet, TakesACommandAndArgumentsUpToTheirLimits)
{
    packet::Writer writer;
    EXPECT_FALSE(writer.begin(std::string(80, 'c'), 0, 0));
    EXPECT_TRUE(writer.begin(std::string(79, 'c'), 0, 0x1122334455667788));
    for (int i = 0; i < 65535; ++i)
        ASSERT_TRUE(writer.add("v")) << i;
    EXPECT_FALSE(writer.add("one too many"));
    writer.finish();
    const packet::Reader reader(writer.bytes());
    EXPECT_EQ(reader.sequence(), 0x1122334455667788U);
    EXPECT_EQ(std::strlen(reader.command()), 79U);
    EXPECT_EQ(reader.arguments(), 65535U);
    EXPECT_EQ(reader.argument(65534).name, nullptr) << "a request's arguments have none";
    EXPECT_STREQ(reader.argument(65534).value, "v");
    EXPECT_FALSE(reader.argument(65535).in_table);
    writer.begin("", 0, 0);
    writer.finish();
    EXPECT_EQ(writer.bytes()[packet::TABLE_AT], 0x67) << "others put the table right behind the header";
}
