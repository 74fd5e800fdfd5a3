#include "settings/infolist_item.hpp"

#include <gtest/gtest.h>

TEST(InfolistItem, HintsAreAnObjectWhateverTheManifestHolds)
{
    const char* const cases[][4] = {
        {"", "{}", "", ""},
        {R"({"json_type": "integer", "min": 0})", R"({"json_type": "integer", "min": 0})", "integer", ""},
        {R"({"json_type": null})", R"({"json_type": null})", "", ""},
        {"[1]", "{}", "", ""},
        {"{", "{}", "", "Error paring {\nunexpected end of input\n"},
    };
    for (const auto& [text, hints, type, complaint] : cases) {
        infolist_item item;
        item.ui_text = text;
        testing::internal::CaptureStderr();
        EXPECT_EQ(item.ui().dump(), hints);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), complaint);
        EXPECT_EQ(item.type(), type);
    }
}
