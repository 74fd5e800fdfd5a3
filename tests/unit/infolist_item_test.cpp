#include "schema/infolist_item.hpp"

#include <gtest/gtest.h>

namespace {

// What a call writes to the tool's standard error.
template <typename Call> std::string complaint_of(Call call)
{
    testing::internal::CaptureStderr();
    call();
    return testing::internal::GetCapturedStderr();
}

TEST(InfolistItem, EveryMarkerHasItsMeaning)
{
    for (const auto& [marker, meaning] : {std::pair<char, const char*>{0, "Config"}, {'=', "Process"},
             {'*', "Transient"}, {'?', "Not In Config"}, {'&', "Unknown"}, {'x', "Unknown"}}) {
        infolist_item item;
        item.marker = marker;
        EXPECT_EQ(item.marker_string(), meaning) << marker;
    }
}

TEST(InfolistItem, HintsAreAnObjectWhateverTheManifestHolds)
{
    const struct {
        const char* text;
        const char* hints;
        const char* type;
        const char* complaint;
    } cases[] = {
        {"", "{}", "", ""},
        {R"({"json_type": "integer", "min": 0})", R"({"json_type": "integer", "min": 0})", "integer", ""},
        {R"({"json_type": null})", R"({"json_type": null})", "", ""},
        {"[1]", "{}", "", ""},
        {"{", "{}", "", "Error paring {\nunexpected end of input\n"},
    };
    for (const auto& row : cases) {
        infolist_item item;
        item.ui_text = row.text;
        std::string hints;
        EXPECT_EQ(complaint_of([&] { hints = item.ui().dump(); }), row.complaint);
        EXPECT_EQ(hints, row.hints);
        complaint_of([&] { EXPECT_EQ(item.type(), row.type); });
    }
}

}  // namespace
