#include "platform/mediaitem.hpp"

#include <gtest/gtest.h>

#include "temporary_directory.hpp"

namespace {

constexpr char GOOD[] = R"(# A comment, and an empty line.

[title]
letter=*
default=first = line
default=
default=third
flags=s nogui detail
description=What the title says,
description=and more.
ui={"json_type":
ui= "string"}

[]
default=of the empty key
[odd ] key]
# no member at all
)";

TEST(Manifest, EverythingThatAnEntryCarriesIsRead)
{
    const TemporaryDirectory directory;
    zelm_config_list list;
    list.with_texts = 1;
    // A second reading starts afresh.
    ASSERT_EQ(list.load_arglist(directory.file("good.al", GOOD).c_str()), 0);
    ASSERT_EQ(list.load_arglist(directory.file("good.al", GOOD).c_str()), 0);
    std::string keys;
    for (const auto& [key, entry] : list)
        keys += key + "|";
    EXPECT_EQ(keys, "|odd ] key|title|");
    const zelm_config_entry& empty = list.begin()->second;
    EXPECT_EQ(empty.default_value, "of the empty key");
    EXPECT_EQ(empty.letter, 0);
    EXPECT_TRUE(empty.quick_summary);
    EXPECT_FALSE(empty.s_flag || empty.nogui_flag);
    const zelm_config_entry& title = std::prev(list.end())->second;
    EXPECT_EQ(title.letter, '*');
    EXPECT_EQ(title.default_value, "first = line\n\nthird");
    EXPECT_TRUE(title.s_flag && title.nogui_flag && !title.quick_summary);
    EXPECT_EQ(title.description, "What the title says,\nand more.");
    EXPECT_EQ(title.ui, "{\"json_type\":\n \"string\"}");
}

TEST(Manifest, OneBrokenLineLeavesTheListEmpty)
{
    const TemporaryDirectory directory;
    const char* const broken[] = {
        "default=ahead of any section\n",
        "[unclosed\n",
        "[\n",
        "[twice]\n[once]\n[twice]\n",
        "[a]\nno member\n",
        "[a]\ncolour=red\n",
        "[a]\n default=blank ahead\n",
        "[a]\nletter=\n",
        "[a]\nletter=xy\n",
        "[a]\nflags=s loud\n",
        "[a]\nflags=s  nogui\n",
    };
    for (const char* const text : broken) {
        zelm_config_list list;
        // What an earlier manifest has left must not show through.
        ASSERT_EQ(list.load_arglist(directory.file("good.al", GOOD).c_str()), 0);
        EXPECT_EQ(list.load_arglist(directory.file("broken.al", std::string(text) + "[ok]\n").c_str()), -1);
        EXPECT_TRUE(list.begin() == list.end()) << text;
    }
    for (const std::string& unreadable : {directory / "missing.al", directory / ""}) {
        zelm_config_list list;
        EXPECT_EQ(list.load_arglist(unreadable.c_str()), -1);
        EXPECT_TRUE(list.begin() == list.end()) << unreadable;
    }
}

}  // namespace
