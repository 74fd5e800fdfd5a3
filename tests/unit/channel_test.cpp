// The channel's document as a whole: what an empty channel shows, the order of the settings, and which
// flat key each plain member goes with.
#include "schema/consume/consume_channel.hpp"
#include "schema/emit/emit_channel.hpp"

#include <gtest/gtest.h>
#include <map>
#include <string_view>

#include "unit/channel_testing.hpp"

namespace {

using json11::Json;

// ---- An empty settings file

TEST(Channel, AnEmptySettingsFileGivesTheWholeDocument)
{
    EXPECT_EQ(emitted<EmitChannel>({}), empty_channel_document());
}

// ---- A full document

constexpr char FULL_REGION[] = R"({
    "enable": true,
    "media": {"path": ["", "BASE"], "loop": true, "mimeType": "video/mp4", "leafPath": ["", "leaf"],
        "leafMimeType": "audio/mpeg", "context": 3, "played": 90, "state": "2"},
    "audio": {"enable": true, "volume": 85.5, "force": false, "rendering": false},
    "video": {"enable": false,
        "geometry": {"size": {"width": 50, "height": 33.5}, "position": {"x": 10, "y": "20"}},
        "force": false, "align": {"vertical": "top", "horizontal": "left"}, "rendering": true}})";

constexpr char FULL_DOCUMENT[] = R"({
    "name": "One",
    "behavior": {"autostart": true, "expirationDelay": {"count": 0.5, "units": "seconds"},
        "lockMemory": false, "loopPlayNow": true, "pauseCorrection": 4, "preview": false,
        "recoverySpeed": 37.5, "realtime": true, "restart": false, "scheduleExport": true,
        "systemDelay": {"count": 90, "units": "frames"},
        "match": {"enable": true, "upconvertAudio": false, "playNow": true}},
    "reporting": {"enable": true, "interval": 5, "service": ["var", "run"], "mode": "v2",
        "lastReport": "noon"},
    "audio": {"channels": 6, "rate": 48000, "fetchExtraSample": true, "meter": [-3, -4],
        "ducking": {"test": false, "interval": 0.25, "level": -24},
        "normalizer": {"enable": true, "attack": 1, "decay": 100,
            "passes": [{"minimum": -24.5, "lower": -6, "upper": -3, "maximum": -1},
                {"upper": -2, "maximum": 0}],
            "filters": {"bass": 80, "treble": 8000, "sdmode": true,
                "mapping": {"mode": "decibel", "intensity": 5}}}},
    "video": {"size": {"width": 720, "height": 480}, "aspect": {"width": 16, "height": 9},
        "rate": {"numerator": 30000, "denominator": 1001, "kind": "interlaced top-field-first"},
        "subsampling": "4:2:2",
        "soften": {"horizontal": {"distance": 1, "passes": 2}, "vertical": {"distance": 3, "passes": 4}}},
    "caption": {"renderEia608": "CC1",
        "conversion": {"verticalAdjustment": 1, "horizontalAdjustment": -2, "enable": true, "force": false}},
    "debug": {"active": "1", "activeItem": "a", "activeSource": "b", "burnIn": "on",
        "captionStatus": {"eia608": "c", "cea708": "d", "scte20": "e"}, "cueStatus": {"scte35": "f"},
        "realtimeStatus": "g", "pidStatus": "h", "sourceGopStatus": "i", "sourceTimestampStatus": "j"},
    "regions": {"main": {"kind": "global", "index": 3},
        "item": REGION(item), "urgent": REGION(urgent), "music": REGION(background music),
        "alerts": {"text": REGION(eas scroll text), "media": REGION(eas av)},
        "global": [REGION(global item 1), REGION(global item 2), REGION(global item 3),
            REGION(global item 4), REGION(global item 5), REGION(global item 6), REGION(global item 7),
            REGION(global item 8)]}})";

const char* const REGIONS[] = {"item", "urgent", "background music", "eas scroll text", "eas av",
    "global item 1", "global item 2", "global item 3", "global item 4", "global item 5", "global item 6",
    "global item 7", "global item 8"};

std::string full_document()
{
    std::string text = FULL_DOCUMENT;
    for (const std::string base : REGIONS) {
        const std::string placeholder = "REGION(" + base + ")";
        text = replaced(std::move(text), placeholder, replaced(FULL_REGION, "BASE", base));
    }
    return text;
}

Pairs full_pairs()
{
    Pairs pairs = {{"channel name", "One"}, {"autostart", "1"}, {"expiration delay", "0.5s"},
        {"lock memory", "0"}, {"alt loop", "1"}, {"pause resume rewind", "4"}, {"preview", "0"},
        {"catch up speed", "37.5"}, {"realtime process", "1"}, {"autorestart", "0"}, {"schedule export", "1"},
        {"system delay", "90f"}, {"match source", "1"}, {"match audio upconvert", "0"},
        {"match source with play now", "1"}, {"reporting log", "1"}, {"reporting interval", "5"},
        {"reporting mode", "v2"}, {"reporting", "/var/run"}, {"last report", "noon"}, {"audio channels", "6"},
        {"audio rate", "48000"}, {"fetch audio with extra sample", "1"}, {"audio normalizer enable", "1"},
        {"ducking test", "0"}, {"ducking time interval", "0.25"}, {"ducking audio level", "-24"},
        {"audio normalizer enable", "1"}, {"audio normalizer attack", "1"}, {"audio normalizer decay", "100"},
        {"audio normalizer minimum level", "-24.5"}, {"audio normalizer lower level", "-6"},
        {"audio normalizer upper level", "-3"}, {"audio normalizer upper level 2=", "-2"},
        {"audio normalizer hard limit level", "-1"}, {"audio normalizer hard limit level 2=", "0"},
        {"audio normalizer bass filter", "80"}, {"audio normalizer treble filter", "8000"},
        {"audio normalizer sd-mode", "1"}, {"audio normalizer map mode", "decibelm5"}, {"video width", "720"},
        {"video height", "480"}, {"video aspect ratio", "16:9"}, {"video rate", "30000:1001li tff"},
        {"video chroma format", "4:2:2"}, {"horizontal soften", "1"}, {"horizontal soften passes", "2"},
        {"vertical soften", "3"}, {"vertical soften passes", "4"}, {"eia-608 render captions", "CC1"},
        {"eia-608 to cea-708 y-adjust", "1"}, {"eia-608 to cea-708 x-adjust", "-2"},
        {"eia-608 to cea-708 conversion", "-1"}, {"active", "1"}, {"active item", "a"},
        {"active source", "b"}, {"burn in", "on"}, {"eia-608 caption status", "c"},
        {"cea-708 caption status", "d"}, {"scte-20 status", "e"}, {"scte-35 status", "f"},
        {"realtime status", "g"}, {"pid status", "h"}, {"source gop status", "i"},
        {"source timestamp status", "j"}, {"main layer", "3"}};
    for (const std::string base : REGIONS) {
        const Pairs region = {{base + " enable", "1"}, {base, "/" + base}, {base + " loop", "1"},
            {base + " file type", "video/mp4"}, {base + " lowest level", "/leaf"},
            {base + " lowest level file type", "audio/mpeg"}, {base + " context id", "3"},
            {base + " playback", "90"}, {base + " state", "2"}, {base + " audio", "1"},
            {base + " audio volume", "85.5"}, {base + " force audio", "0"}, {base + " audio enabled", "0"},
            {base + " video enabled", "0"}, {base + " size", "50 33.5"}, {base + " position", "10 20"},
            {base + " force video", "0"}, {base + " align", "top left"}, {base + " video enabled", "1"}};
        pairs.insert(pairs.end(), region.begin(), region.end());
        if (base == "background music")
            pairs.emplace_back("", "");  // the policy, which the document lacks
    }
    return pairs;
}

TEST(Channel, AFullDocumentGivesEveryPairInOrder)
{
    EXPECT_EQ(consumed<ConsumerChannel>(full_document()), full_pairs());
}

TEST(Channel, OnePassInAndOutChangesOnlyWhatTheDirectionsDifferIn)
{
    const struct {
        const char* read;
        const char* written;
    } differences[] = {
        {R"("lastReport": "noon")", R"("lastReport": "g")"},  // the realtime status
        {R"("meter": [-3, -4])", R"("meter": [])"},
        {R"("burnIn": "on",)", ""},
        {R"("index": 3)", R"("index": "3")"},
        {R"("video": {"enable": false)", R"("video": {"enable": true)"},  // the rendering wins
        {R"("y": "20")", R"("y": 20)"},
    };
    std::string expected = full_document();
    for (const auto& row : differences) {
        ASSERT_NE(expected.find(row.read), std::string::npos) << row.read;
        expected = replaced(std::move(expected), row.read, row.written);
    }
    EXPECT_EQ(emitted<EmitChannel>(full_pairs()),
        Json(EmitJson::set(parsed(expected).object_items(), "regions.music.policy", "")));
}

TEST(Channel, PartialDocumentsChangeOnlyWhatTheyName)
{
    const struct {
        const char* document;
        Pairs pairs;
    } cases[] = {
        {"{}", {}},
        {"no JSON", {}},
        {"[1]", {}},
        {R"({"name": "x"})", {{"channel name", "x"}, {"", ""}}},
        {R"({"unknown": 1})", {{"", ""}}},
        {R"({"behavior": null, "reporting": 1, "audio": "x", "video": [], "regions": true})", {{"", ""}}},
    };
    for (const auto& row : cases)
        EXPECT_EQ(consumed<ConsumerChannel>(row.document), row.pairs) << row.document;
}

// ---- Each plain member

enum class Kind { TEXT, BOOLEAN, INTEGER, NUMBER, NULLABLE_NUMBER, COUNT, PATH, NONE };
using enum Kind;

struct Member {
    const char* path;
    const char* flat_key;
    Kind written;
    Kind read;
    const char* from_null;
};

const Member MEMBERS[] = {
    {"name", "channel name", TEXT, TEXT, ""},
    {"behavior.autostart", "autostart", BOOLEAN, BOOLEAN, "0"},
    {"behavior.lockMemory", "lock memory", BOOLEAN, BOOLEAN, "0"},
    {"behavior.loopPlayNow", "alt loop", BOOLEAN, BOOLEAN, "0"},
    {"behavior.pauseCorrection", "pause resume rewind", INTEGER, INTEGER, "0"},
    {"behavior.preview", "preview", BOOLEAN, BOOLEAN, "0"},
    {"behavior.recoverySpeed", "catch up speed", NULLABLE_NUMBER, NUMBER, ""},
    {"behavior.realtime", "realtime process", BOOLEAN, BOOLEAN, "1"},
    {"behavior.restart", "autorestart", BOOLEAN, BOOLEAN, "0"},
    {"behavior.scheduleExport", "schedule export", BOOLEAN, BOOLEAN, "0"},
    {"behavior.match.enable", "match source", BOOLEAN, BOOLEAN, "0"},
    {"behavior.match.upconvertAudio", "match audio upconvert", BOOLEAN, BOOLEAN, "1"},
    {"behavior.match.playNow", "match source with play now", BOOLEAN, BOOLEAN, "0"},
    {"reporting.enable", "reporting log", BOOLEAN, BOOLEAN, "1"},
    {"reporting.interval", "reporting interval", NUMBER, INTEGER, "5"},
    {"reporting.mode", "reporting mode", TEXT, TEXT, ""},
    {"reporting.lastReport", "last report", NONE, TEXT, ""},
    {"audio.channels", "audio channels", INTEGER, INTEGER, "2"},
    {"audio.rate", "audio rate", INTEGER, INTEGER, "48000"},
    {"audio.fetchExtraSample", "fetch audio with extra sample", BOOLEAN, BOOLEAN, "0"},
    {"audio.ducking.test", "ducking test", BOOLEAN, BOOLEAN, "0"},
    {"audio.ducking.interval", "ducking time interval", NUMBER, NUMBER, "0.300000"},
    {"audio.ducking.level", "ducking audio level", NUMBER, NUMBER, "-24"},
    {"audio.normalizer.enable", "audio normalizer enable", BOOLEAN, BOOLEAN, "1"},
    {"audio.normalizer.attack", "audio normalizer attack", NUMBER, NUMBER, "1"},
    {"audio.normalizer.decay", "audio normalizer decay", NUMBER, NUMBER, "100"},
    {"audio.normalizer.filters.bass", "audio normalizer bass filter", NULLABLE_NUMBER, INTEGER, ""},
    {"audio.normalizer.filters.treble", "audio normalizer treble filter", NULLABLE_NUMBER, INTEGER, ""},
    {"audio.normalizer.filters.sdmode", "audio normalizer sd-mode", BOOLEAN, BOOLEAN, "0"},
    {"video.size.width", "video width", INTEGER, INTEGER, "720"},
    {"video.size.height", "video height", INTEGER, INTEGER, "480"},
    {"video.subsampling", "video chroma format", TEXT, TEXT, "4:2:0"},
    {"video.soften.horizontal.distance", "horizontal soften", INTEGER, INTEGER, "0"},
    {"video.soften.horizontal.passes", "horizontal soften passes", INTEGER, INTEGER, "1"},
    {"video.soften.vertical.distance", "vertical soften", INTEGER, INTEGER, "0"},
    {"video.soften.vertical.passes", "vertical soften passes", INTEGER, INTEGER, "1"},
    {"caption.renderEia608", "eia-608 render captions", TEXT, TEXT, "None"},
    {"caption.conversion.verticalAdjustment", "eia-608 to cea-708 y-adjust", INTEGER, INTEGER, "0"},
    {"caption.conversion.horizontalAdjustment", "eia-608 to cea-708 x-adjust", INTEGER, INTEGER, "0"},
    {"debug.active", "active", TEXT, TEXT, ""},
    {"debug.activeItem", "active item", TEXT, TEXT, ""},
    {"debug.activeSource", "active source", TEXT, TEXT, ""},
    {"debug.burnIn", "burn in", NONE, TEXT, ""},
    {"debug.captionStatus.eia608", "eia-608 caption status", TEXT, TEXT, ""},
    {"debug.captionStatus.cea708", "cea-708 caption status", TEXT, TEXT, ""},
    {"debug.captionStatus.scte20", "scte-20 status", TEXT, TEXT, ""},
    {"debug.cueStatus.scte35", "scte-35 status", TEXT, TEXT, ""},
    {"debug.realtimeStatus", "realtime status", NONE, TEXT, ""},
    {"debug.pidStatus", "pid status", TEXT, TEXT, ""},
    {"debug.sourceGopStatus", "source gop status", TEXT, TEXT, ""},
    {"debug.sourceTimestampStatus", "source timestamp status", TEXT, TEXT, ""},
    {"regions.music.policy", "background music default policy", TEXT, TEXT, "if-no-audio"},
    {"regions.item.enable", "item enable", BOOLEAN, BOOLEAN, "1"},
    {"regions.item.media.path", "item", PATH, PATH, ""},
    {"regions.item.media.loop", "item loop", BOOLEAN, BOOLEAN, "0"},
    {"regions.item.media.mimeType", "item file type", TEXT, TEXT, ""},
    {"regions.item.media.leafPath", "item lowest level", PATH, PATH, ""},
    {"regions.item.media.leafMimeType", "item lowest level file type", TEXT, TEXT, ""},
    {"regions.item.media.context", "item context id", COUNT, INTEGER, "-1"},
    {"regions.item.media.played", "item playback", COUNT, NUMBER, "-1"},
    {"regions.item.media.state", "item state", TEXT, TEXT, ""},
    {"regions.item.audio.enable", "item audio", BOOLEAN, BOOLEAN, "1"},
    {"regions.item.audio.volume", "item audio volume", NUMBER, NUMBER, "100"},
    {"regions.item.audio.force", "item force audio", BOOLEAN, BOOLEAN, "0"},
    {"regions.item.audio.rendering", "item audio enabled", BOOLEAN, BOOLEAN, "0"},
    {"regions.item.video.enable", "item video enabled", NONE, BOOLEAN, "0"},
    {"regions.item.video.force", "item force video", BOOLEAN, BOOLEAN, "0"},
    {"regions.item.video.rendering", "item video enabled", NONE, BOOLEAN, "0"},
};

const std::map<Kind, std::vector<std::pair<const char*, Json>>> WRITTEN_AS = {
    {TEXT, {{"x", "x"}, {"7", "7"}}},
    {BOOLEAN, {{"1", true}, {"01", false}, {"true", false}}},
    {INTEGER, {{"7.9 px", 7}, {"x", 0}, {"3000000000", 0}}},
    {NUMBER, {{"-2.5 dB", -2.5}, {"x", 0}}},
    {NULLABLE_NUMBER, {{"-2.5", -2.5}, {"x", 0}}},
    {COUNT, {{"7.9", 7}, {"0", nullptr}, {"-1", nullptr}, {"x", nullptr}}},
    {PATH, {{"/mnt/main", Json::array{"", "mnt", "main"}}}},
};

TEST(Channel, EachFlatKeyShowsInItsMemberAlone)
{
    const Document empty = empty_channel_document().object_items();
    for (const Member& member : MEMBERS) {
        if (member.written == NONE)
            continue;
        for (const auto& [text, json] : WRITTEN_AS.at(member.written))
            EXPECT_EQ(emitted<EmitChannel>({{member.flat_key, text}}),
                Json(EmitJson::set(empty, member.path, json)))
                << member.path << " from " << text;
    }
}

// The settings that a document leaves behind when its pairs are applied in order.
std::map<std::string, std::string> applied(const Json& document)
{
    std::map<std::string, std::string> settings;
    for (const auto& [key, value] : consumed<ConsumerChannel>(document.dump()))
        settings[key] = value;
    settings.erase("");
    return settings;
}

struct Reading {
    Json json;
    const char* text;
};

const std::map<Kind, std::vector<Reading>> READ_AS = {
    {TEXT, {{"x", "x"}, {2.5, "2.5"}, {true, "true"}}},
    {BOOLEAN, {{true, "1"}, {false, "0"}, {"1", "0"}, {1, "0"}}},
    {INTEGER, {{2.9, "2"}, {"x", "x"}, {true, "0"}}},
    {NUMBER, {{-2.5, "-2.5"}, {1e3, "1000"}, {"x", "x"}, {true, "0"}}},
    {PATH, {{Json::array{"", "mnt", 1}, "/mnt/"}, {"x", ""}}},
};

TEST(Channel, EachMemberIsReadAsItsTypeAndANullAsItsDefault)
{
    for (const Member& member : MEMBERS) {
        std::vector<Reading> readings = READ_AS.at(member.read);
        readings.push_back({nullptr, member.from_null});
        for (const Reading& reading : readings) {
            std::map<std::string, std::string> expected = {{member.flat_key, reading.text}};
            if (std::string_view(member.path).starts_with("regions.item.video."))
                expected["item align"] = "center center";
            EXPECT_EQ(applied(EmitJson::set({}, member.path, reading.json)), expected)
                << member.path << " from " << reading.json.dump();
        }
    }
}

}  // namespace
