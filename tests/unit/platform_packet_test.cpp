#include "platform/packet.hpp"

#include <cstring>
#include <functional>
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

void store(Bytes& bytes, std::size_t at, std::uint32_t number, std::size_t size = 4)
{
    for (std::size_t i = 0; i < size; ++i)
        bytes[at + i] = static_cast<unsigned char>(number >> (8 * i));
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

TEST(Packet, DamageIsMissingAndNeverRead)
{
    const Bytes whole = sample_reply();
    const std::uint32_t table = load(whole, packet::TABLE_AT);
    const auto size = static_cast<std::uint32_t>(whole.size());
    struct Case {
        const char* what;
        std::function<void(Bytes&)> damage;
        std::size_t arguments;
        bool in_table;  // of the first argument, as its name and value
        const char* name;
        const char* value;
    };
    const Case cases[] = {
        {"nothing left", [](Bytes& b) { b.clear(); }, 0, false, nullptr, nullptr},
        {"no NUL behind the command", [](Bytes& b) { b.resize(packet::COMMAND_AT + 6); }, 0, false, nullptr,
            nullptr},
        {"header cut before its end", [](Bytes& b) { b.resize(0x66); }, 0, false, nullptr, nullptr},
        {"header alone", [](Bytes& b) { b.resize(0x67); }, 3, false, nullptr, nullptr},
        {"count beyond the table", [](Bytes& b) { store(b, 0x61, 0xffff, 2); }, 65535, true, "*title", "One"},
        {"table at the end", [=](Bytes& b) { store(b, 0x63, size); }, 3, false, nullptr, nullptr},
        {"table one byte too far", [=](Bytes& b) { store(b, 0x63, size - 15); }, 3, false, nullptr, nullptr},
        {"table wraps around", [](Bytes& b) { store(b, 0x63, 0xfffffff0); }, 3, false, nullptr, nullptr},
        {"table in the header", [](Bytes& b) { store(b, 0x63, 0x10); }, 3, false, nullptr, nullptr},
        {"name outside", [=](Bytes& b) { store(b, table, size); }, 3, true, nullptr, "One"},
        {"value far outside", [=](Bytes& b) { store(b, table + 4, 0xffffffff); }, 3, true, "*title", nullptr},
        {"value without its NUL",
            [=](Bytes& b) {
                store(b, table + 4, size);
                b.push_back('x');
            },
            3, true, "*title", nullptr},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.what);
        Bytes bytes = whole;
        each.damage(bytes);
        bytes.shrink_to_fit();
        const Reader reader(bytes);
        EXPECT_EQ(reader.arguments(), each.arguments);
        const Reader::Argument first = reader.argument(0);
        EXPECT_EQ(first.in_table, each.in_table);
        EXPECT_EQ(text(first.name), text(each.name));
        EXPECT_EQ(text(first.value), text(each.value));
        EXPECT_STREQ(reader.command(), bytes.size() > packet::COMMAND_AT + 6 ? "report" : "");
    }
}

}  // namespace
