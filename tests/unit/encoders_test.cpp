// The stream encoders, whose schemas are keys of three encoders and of the item.
#include "unit/schema_rows.hpp"

namespace {

TEST(ShoutCast, EveryKeyGoesBothWays)
{
    Rows encoders;
    for (const std::string base : {"0", "1", "2"})
        encoders = encoders + rows(key_lists().at("ENC_audio"), "text", {"enc", base}, "enc" + base + ", ");
    // The names of the codecs' own members are read with one underscore.
    for (KeyRow& row : encoders)
        if (const std::size_t at = row.path.back().find("__"); at != std::string::npos)
            row.read_path.back().erase(at, 1);
    const Rows keys =
        rows(key_lists().at("SHOUTCAST")) + encoders + rows(key_lists().at("SHOUTCAST_BEHIND_ENCODERS"));
    expect_both_ways("shoutcast", keys);
}

// In the order in which a set applies them.
TEST(InternetMpeg, EveryKeyGoesBothWays)
{
    Rows keys;
    for (const std::string base : {"0", "1", "2"}) {
        const std::string prefix = "enc" + base + ", ";
        for (const int asi : {0, 1, 2})
            keys =
                keys + rows(key_lists().at("NUMBERED_ASI"), "text", {"enc", base, "asi", std::to_string(asi)},
                           prefix + "asi" + std::to_string(asi + 1) + ", ");
        for (const std::string name : {"audio", "video", "ps", "ts", "iptv"})
            keys =
                keys + rows(key_lists().at("ENC_" + name), "text", {"enc", base, name}, prefix + name + ", ");
        keys = keys + rows(key_lists().at("ENC_ASI"), "text", {"enc", base}, prefix);
    }
    keys = keys + rows(key_lists().at("INTERNET_MPEG"), "text");
    EXPECT_EQ(emitted("internet_mpeg", {}), unset("internet_mpeg", keys));
    Pairs settings;
    Json document, nulls;
    for (const KeyRow& row : keys) {
        settings.emplace_back(row.key, " value of " + row.key);
        document = with(document, row.path, settings.back().second);
        nulls = with(nulls, row.path, nullptr);
    }
    EXPECT_EQ(emitted("internet_mpeg", settings), document);
    EXPECT_EQ(consumed("internet_mpeg", document.dump()), settings);
    for (std::size_t i = 0; i < keys.size(); ++i)
        settings[i].second = keys[i].of_null;
    EXPECT_EQ(consumed("internet_mpeg", nulls.dump()), settings);
}

TEST(Encoders, DocumentsChangeOnlyWhatTheyName)
{
    const struct {
        const char* driver;
        const char* document;
        Pairs pairs;
    } cases[] = {
        {"shoutcast",
            R"({"enc": [{"rate": "1"}, null, {"rate": "3", "mp3__strict_iso": "1"}, {"rate": "4"}]})",
            {{"enc0, rate", "1"}, {"enc2, rate", "3"}}},
        {"shoutcast", R"({"enc": {"0": {"rate": "1"}}, "item": "/one"})", {{"item", "/one"}}},
        {"internet_mpeg",
            R"({"enc": [null, {"audio": {"rate": 48000}}, {"ps": {"vbr": null}}, {"asi__index": "4"}]})",
            {{"enc1, audio, rate", "48000"}, {"enc2, ps, vbr", "1"}}},
        {"internet_mpeg", R"({"enc": [{"audio": null, "video": {"name": "hd"}, "asi": null}]})",
            {{"enc0, video, name", "hd"}}},
        // Output j of every encoder hangs on output j of encoder j.
        {"internet_mpeg",
            R"({"enc": [{"asi": [{}, {"path": "/a"}]}, {"asi": [{}, null]}, {"asi": [{}, {"path": "/c"}]}]})",
            {}},
        {"internet_mpeg",
            R"({"enc": [{"asi": [null, {"path": "/a"}]}, {"asi": [null, {}]}, {"asi": [null, {"path": "/c"}]}]})",
            {{"enc0, asi2, path", "/a"}, {"enc2, asi2, path", "/c"}}},
        {"internet_mpeg",
            R"({"enc": [{"asi": [{"path": "/a"}, null, {"path": "/b"}]}, {"asi": [{"path": "/c"}]}]})",
            {{"enc0, asi1, path", "/a"}, {"enc1, asi1, path", "/c"}}},
    };
    for (const auto& row : cases)
        EXPECT_EQ(consumed(row.driver, row.document), row.pairs) << row.driver << row.document;
}

}  // namespace
