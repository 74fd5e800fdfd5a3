#include "platform/packet.hpp"

#include <cstring>
#include <gtest/gtest.h>

namespace {

using packet::Reader;
using packet::Writer;
using Bytes = std::vector<unsigned char>;

Bytes sample_reply()
{
    Writer writer;
    writer.begin("report", 0, 0x1122334455667788);
    writer.add("*title", "One");
    writer.add("*empty", "");
    writer.add("", "nameless");
    writer.finish();
    return writer.bytes();
}

std::uint32_t load(const Bytes& bytes, std::size_t at)
{
    std::uint32_t number = 0;
    for (std::size_t i = 4; i-- > 0;)
        number = number << 8 | bytes[at + i];
    return number;
}

std::string text(const char* from)
{
    return from ? from : "(missing)";
}

TEST(Packet, ReplyComesBackAsItWasWritten)
{
    const Bytes bytes = sample_reply();
    const Reader reader(bytes);
    EXPECT_EQ(reader.flags(), 0);
    EXPECT_EQ(reader.sequence(), 0x1122334455667788U);
    EXPECT_STREQ(reader.command(), "report");
    ASSERT_EQ(reader.arguments(), 3U);
    const char* const expected[][2] = {{"*title", "One"}, {"*empty", ""}, {"", "nameless"}};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(text(reader.argument(i).name), expected[i][0]);
        EXPECT_EQ(text(reader.argument(i).value), expected[i][1]);
    }
    EXPECT_FALSE(reader.argument(3).in_table);
    // Drivers in service find the fields where they have always been.
    EXPECT_EQ(bytes[0x61] | bytes[0x62] << 8, 3);
    const std::uint32_t table = load(bytes, 0x63);
    ASSERT_EQ(table + 3 * 16, bytes.size());
    EXPECT_EQ(load(bytes, table), 0x67U);
    EXPECT_STREQ(reinterpret_cast<const char*>(&bytes[load(bytes, table)]), "*title");
    EXPECT_STREQ(reinterpret_cast<const char*>(&bytes[load(bytes, table + 4)]), "One");
}

TEST(Packet, WriterRefusesWhatDoesNotFit)
{
    Writer writer;
    EXPECT_FALSE(writer.begin(std::string(80, 'c'), 0, 0));
    EXPECT_TRUE(writer.begin(std::string(79, 'c'), 0, 0));
    for (int i = 0; i < 65535; ++i)
        ASSERT_TRUE(writer.add("v")) << i;
    EXPECT_FALSE(writer.add("one too many"));
    writer.finish();
    const Reader reader(writer.bytes());
    EXPECT_EQ(std::strlen(reader.command()), 79U);
    EXPECT_EQ(reader.arguments(), 65535U);
    EXPECT_EQ(text(reader.argument(65534).name), "(missing)") << "a request's arguments have none";
    EXPECT_EQ(text(reader.argument(65534).value), "v");
}

}  // namespace
