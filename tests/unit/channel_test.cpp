// The channel's document.
#include "unit/schema_rows.hpp"

namespace {

Rows channel_rows()
{
    // The flat keys and the members of the regions begin so.
    std::vector<std::pair<std::string, std::string>> regions = {{"item", "item"}, {"urgent", "urgent"},
        {"background music", "music"}, {"eas scroll text", "alerts.text"}, {"eas av", "alerts.media"}};
    for (int i = 0; i < 8; ++i)
        regions.emplace_back("global item " + std::to_string(i + 1), "global." + std::to_string(i));
    Rows all = rows(key_lists().at("CHANNEL"));
    for (const auto& [key, path] : regions) {
        all =
            all + rows(replaced(replaced(key_lists().at("REGION"), "P.", "regions." + path + "."), "B", key));
        if (path == "music")
            all = all + rows("background music default policy:text=if-no-audio@regions.music.policy");
    }
    return all;
}

TEST(Channel, EveryKeyGoesBothWays)
{
    // Whatever stands alone in the video of a region also writes the alignment. The normalizer's switch is
    // written twice, and what lacks a policy writes a nameless key.
    expect_both_ways("channel", channel_rows(), [](Pairs& pairs) {
        pairs.erase(std::unique(pairs.begin(), pairs.end()), pairs.end());
        std::erase_if(
            pairs, [](const auto& pair) { return pair.first.empty() || pair.second == "center center"; });
    });
}

TEST(Channel, ANamelessPairTakesThePlaceOfAMissingPolicy)
{
    const std::pair<const char*, Pairs> cases[] = {
        {"no JSON", {}},
        {"{}", {}},
        {R"({"unknown": 1})", {{"", ""}}},
        {R"({"behavior": null, "reporting": 1, "audio": "x", "video": [], "regions": true})", {{"", ""}}},
        {R"({"name": "x", "regions": {"urgent": {"enable": true}, "alerts": {"text": {"enable": null}}}})",
            {{"channel name", "x"}, {"urgent enable", "1"}, {"", ""}, {"eas scroll text enable", "1"}}},
    };
    for (const auto& [document, pairs] : cases)
        EXPECT_EQ(consumed("channel", document), pairs) << document;
}

constexpr char NOTHING[] = "(nothing written)";

// What the document leaves in the flat key.
std::string left(const Json& document, const std::string& flat_key)
{
    std::string text = NOTHING;
    for (const auto& [key, value] : consumed("channel", document.dump()))
        if (key == flat_key)
            text = value;
    return text;
}

TEST(Channel, AFlatTextItsMemberAndTheFlatTextAgain)
{
    constexpr char BFF[] =
        R"({"numerator": 30000, "denominator": 1001, "kind": "interlaced bottom-field-first"})";
    constexpr char TFF[] =
        R"({"numerator": 30000, "denominator": 1001, "kind": "interlaced top-field-first"})";
    constexpr const char* NEVER = nullptr;  // no flat text becomes that JSON
    const struct {
        const char *flat_key, *path;
        struct {
            const char *flat, *json, *back;
        } forms[9];
    } members[] = {
        {"channel name", "name", {{NEVER, "[1]", "[1]"}, {NEVER, "true", "true"}, {NEVER, R"("")", ""}}},
        {"lock memory", "behavior.lockMemory",
            {{" 1", "false", "0"}, {"01", "false", "0"}, {NEVER, R"("1")", "0"}, {NEVER, "[]", "0"}}},
        {"video width", "video.size.width",
            {{"loud", "0", "0"}, {"3000000000", "0", "0"}, {NEVER, R"("loud")", "loud"},
                {NEVER, "true", "0"}}},
        {"ducking audio level", "audio.ducking.level",
            {{"1e999", "0", "0"}, {"3e9", "3e9", "3000000000"}, {NEVER, R"("loud")", "loud"},
                {NEVER, "true", "0"}}},
        {"item", "regions.item.media.path",
            {{"a//b/", R"(["a", "", "b", ""])", "a//b/"}, {NEVER, R"("x")", ""}}},
        {"item context id", "regions.item.media.context", {{"0", "null", "-1"}, {"x", "null", "-1"}}},
        {"item playback", "regions.item.media.played", {{"12.5", "12", "12"}, {NEVER, "12.5", "12.5"}}},
        {"audio normalizer upper level", "audio.normalizer.passes.0.upper", {{"loud", "0", "0"}}},
        {"audio meter", "audio.meter",
            {{"-12.5", "[]", NOTHING}, {"-12.5 , -inf ", R"([-12.5, "Number.NEGATIVE_INFINITY"])", NOTHING}}},
        // The expiration needs both members, the system delay only the object.
        {"expiration delay", "behavior.expirationDelay",
            {{"", "{}", NOTHING}, {"15", R"({"count": 1, "units": "5"})", "15"},
                {"0.1s", R"({"count": 0.1, "units": "seconds"})", "0.10000000000000001s"},
                {NEVER, R"({"count": 3})", NOTHING}, {NEVER, R"({"units": "frames"})", NOTHING},
                {NEVER, R"({"count": null, "units": "frames"})", "0.500000f"},
                {NEVER, R"({"count": "7", "units": null})", "7s"}}},
        {"system delay", "behavior.systemDelay",
            {{"", "{}", "1s"}, {"xf", R"({"count": 0, "units": "frames"})", "0f"}, {NEVER, "null", "1s"},
                {NEVER, R"({"count": 2, "units": "weeks"})", "2weeks"}}},
        {"reporting", "reporting.service",
            {{"", "null", "/"}, {"/", R"([""])", "/"}, {"var/run", R"(["run"])", "/run"},
                {"var", "[]", "/"}}},
        {"realtime status", "reporting.lastReport", {{"late", R"("late")", NOTHING}}},
        // A null limit keeps what is stored.
        {"audio normalizer hard limit level", "audio.normalizer.passes.0.maximum",
            {{NEVER, "null", NOTHING}}},
        {"audio normalizer hard limit level 2=", "audio.normalizer.passes.1.maximum",
            {{NEVER, "null", NOTHING}}},
        {"audio normalizer map mode", "audio.normalizer.filters.mapping",
            {{"decibel", R"({"mode": "linear"})", "linear"},
                {"decibelmx", R"({"mode": "decibel", "intensity": 0})", "decibelm0"},
                {NEVER, R"({"mode": null})", "linear"}, {NEVER, R"({"intensity": 5})", NOTHING},
                {NEVER, R"({"mode": "cubic"})", "decibelm0"}}},
        // The aspect needs both members, the rate none.
        {"video aspect ratio", "video.aspect",
            {{"16/9", R"({"width": 16, "height": 9})", "16:9"}, {NEVER, R"({"height": 9})", NOTHING},
                {NEVER, R"({"width": 16})", NOTHING}, {NEVER, R"({"width": null, "height": null})", "4:3"}}},
        {"video rate", "video.rate",
            {{"", "null", "30000:1001li bff"}, {"30000/1001i tff", BFF, "30000:1001li bff"},
                {"30000:1001li tff", TFF, "30000:1001li tff"}, {NEVER, "{}", "30000:1001li bff"},
                {NEVER, R"({"denominator": 1, "kind": "weird"})", "30000:1weird"}}},
        {"eia-608 render captions", "caption.renderEia608",
            {{"", "null", "None"}, {"None", "null", "None"}, {"TEXT4", R"("TEXT4")", "TEXT4"}}},
        {"eia-608 to cea-708 conversion", "caption.conversion",
            {{NEVER, R"({"enable": true})", NOTHING}, {NEVER, R"({"force": true})", NOTHING},
                {NEVER, R"({"enable": true, "force": true})", "1"},
                {NEVER, R"({"enable": null, "force": false})", "-1"},
                {NEVER, R"({"enable": false, "force": true})", "0"}}},
        {"eia-608 to cea-708 conversion", "caption.conversion.enable", {{"0", "false", NOTHING}}},
        {"eia-608 to cea-708 conversion", "caption.conversion.force",
            {{"0", "false", NOTHING}, {"-1", "false", NOTHING}}},
        {"main layer", "regions.main",
            {{"item", R"({"kind": "item"})", "item"}, {"urgent", R"({"kind": "urgent"})", "urgent"},
                {"music", R"({"kind": "music"})", "music"},
                {"text", R"({"kind": "alerts", "part": "text"})", "text"},
                {"media", R"({"kind": "alerts", "part": "media"})", "media"},
                {NEVER, R"({"kind": null})", "item"}, {NEVER, R"({"kind": "alerts"})", ""},
                {NEVER, R"({"kind": "item 1"})", NOTHING},
                {NEVER, R"({"kind": "global", "index": 3.9})", "3"}}},
        {"urgent size", "regions.urgent.video.geometry.size",
            {{"50  20", R"({"width": 50, "height": 0})", "50 0"}, {NEVER, R"({"width": "a"})", "a 0"}}},
        {"item position", "regions.item.video.geometry",
            {{NEVER, R"({"position": null})", "0 0"}, {NEVER, "{}", NOTHING}}},
        {"urgent align", "regions.urgent.video.align",
            {{" right", R"({"vertical": "center", "horizontal": "right"})", "center right"},
                {NEVER, R"({"vertical": "top"})", "top center"}}},
        {"item align", "regions.item",
            {{NEVER, R"({"video": {}})", "center center"}, {NEVER, R"({"audio": {}})", NOTHING}}},
        {"item video enabled", "regions.item.video.rendering", {{"1", "true", "1"}}},
        {"background music default policy", "regions.music.policy",
            {{"if no audio", R"("if-no-audio")", "if-no-audio"}}},
        // The array of the global items ends at the first null, and at the eighth.
        {"global item 2 enable", "regions.global", {{NEVER, R"([null, {"enable": true}])", NOTHING}}},
        {"global item 9 enable", "regions.global.8.enable", {{NEVER, "true", NOTHING}}},
        {"global item 1 enable", "regions.global", {{NEVER, R"({"0": {"enable": true}})", NOTHING}}},
    };
    for (const auto& member : members) {
        const JsonPath path = split(member.path, ".");
        for (const auto& [flat, json, back] : member.forms) {
            if (!json)
                break;
            EXPECT_EQ(left(with({}, path, parsed(json)), member.flat_key), back) << member.path << json;
            if (flat != NEVER) {
                EXPECT_EQ(reduce(emitted("channel", {{member.flat_key, flat}}), path), parsed(json)) << flat;
            }
        }
    }
}

TEST(Channel, ABadAspectRatioOrMeterEndsTheRun)
{
    for (const char* ratio : {"16", "16:9:1", "::"})
        EXPECT_THROW(emitted("channel", {{"video aspect ratio", ratio}}), const char*) << ratio;
    for (const char* meter : {"-12.5,", "-3,loud", "-inf,1e999"})
        EXPECT_THROW(emitted("channel", {{"audio meter", meter}}), std::logic_error) << meter;
}

}  // namespace
