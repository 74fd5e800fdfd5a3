// The drivers whose schemas are lists of keys, in the order in which a document's pairs are applied.
#include "unit/schema_rows.hpp"

namespace {

TEST(Schemas, EveryKeyOfEveryDriverGoesBothWays)
{
    for (const auto& [words, list] : key_lists())
        for (const std::string& word : split(words, " "))
            if (word[0] >= 'a')  // no part of lists
                expect_both_ways(word, rows(list, word.starts_with("video_") ? "text" : "text?"));
}

TEST(Schemas, DocumentsChangeOnlyWhatTheyName)
{
    const struct {
        const char* driver;
        const char* document;
        Pairs pairs;
    } cases[] = {
        {"x11", "not JSON", {}},
        {"x11", "[1]", {}},
        {"x11", R"({"debug": 1, "video": null})", {{"last error", ""}, {"last notes", ""}}},
        {"drmkms", R"({"kms": {"connector": {}, "master": {"using": true}}})",
            {{"using drm as master", "1"}}},
        {"trigger_rs232", R"({"driver": "trigger_rs232"})", {}},
        {"blackmagic_videohub", R"({"route_delay": "5", "port": null})", {{"port", ""}}},
        {"video_passthru", R"({"2_encoding": "0", "2 encoding": "0", "mpeg_cpu_threshold": "5"})", {}},
        {"newtek_ndi", R"({"name": "One"})", {{"channel name", "One"}, {"", ""}}},
        {"X11", R"({"name": "One"})", {{"channel name", "One"}, {"", ""}}},
    };
    for (const auto& row : cases)
        EXPECT_EQ(consumed(row.driver, row.document), row.pairs) << row.driver << row.document;
    EXPECT_THROW(consumed("x11", R"({"x11": []})"), std::invalid_argument);
    const std::pair<const char*, Json> devices[] = {
        {"1", 1}, {"pci:0:1", "pci:0:1"}, {"3000000000", "3000000000"}};
    for (const auto& [text, json] : devices)
        EXPECT_EQ(emitted("drmkms", {{"device", text}})["kms"]["connector"]["card"]["select"], json);
    for (const char* word : {"", "newtek_ndi", "X11", "x11 "})
        EXPECT_EQ(emitted(word, {{"alt loop", "1"}})["behavior"]["loopPlayNow"], Json(true)) << word;
}

}  // namespace
