// The channel's document: its plain members, those with a grammar of their own, and the places where its two
// directions differ.
#include <stdexcept>

#include "unit/channel_testing.hpp"
#include "unit/schema_rows.hpp"

using json11::Json;

namespace {

constexpr char CHANNEL[] = R"(
    channel name:text@name; autostart:switch=0@behavior.autostart;
    expiration delay:form=0.5s@behavior.expirationDelay@{"count": 0.5, "units": "seconds"};
    lock memory:switch=0@behavior.lockMemory; alt loop:switch=0@behavior.loopPlayNow;
    pause resume rewind:integer=0@behavior.pauseCorrection; preview:switch=0@behavior.preview;
    catch up speed:number?@behavior.recoverySpeed; realtime process:switch=1@behavior.realtime;
    autorestart:switch=0@behavior.restart; schedule export:switch=0@behavior.scheduleExport;
    system delay:form=90f@behavior.systemDelay@{"count": 90, "units": "frames"};
    match source:switch=0@behavior.match.enable; match audio upconvert:switch=1@behavior.match.upconvertAudio;
    match source with play now:switch=0@behavior.match.playNow; reporting log:switch=1@reporting.enable;
    reporting interval:number/integer=5@reporting.interval; reporting mode:text@reporting.mode;
    reporting:form=/var/run@reporting.service@["var", "run"]; last report:none/text@reporting.lastReport;
    audio channels:integer=2@audio.channels; audio rate:integer=48000@audio.rate;
    fetch audio with extra sample:switch=0@audio.fetchExtraSample;
    audio normalizer enable:form=1@audio.normalizer.enable; ducking test:switch=0@audio.ducking.test;
    ducking time interval:number=0.300000@audio.ducking.interval;
    ducking audio level:number=-24@audio.ducking.level;
    audio normalizer enable:switch=1@audio.normalizer.enable;
    audio normalizer attack:number=1@audio.normalizer.attack;
    audio normalizer decay:number=100@audio.normalizer.decay;
    audio normalizer minimum level:level/number=-24@audio.normalizer.passes.0.minimum;
    audio normalizer lower level:level/number=-6@audio.normalizer.passes.0.lower;
    audio normalizer upper level:level/number=-3@audio.normalizer.passes.0.upper;
    audio normalizer upper level 2=:level/number=-3@audio.normalizer.passes.1.upper;
    audio normalizer hard limit level:number?/number=-1@audio.normalizer.passes.0.maximum@-1;
    audio normalizer hard limit level 2=:number?/number=-2@audio.normalizer.passes.1.maximum@-2;
    audio normalizer bass filter:number?/integer@audio.normalizer.filters.bass;
    audio normalizer treble filter:number?/integer@audio.normalizer.filters.treble;
    audio normalizer sd-mode:switch=0@audio.normalizer.filters.sdmode;
    audio normalizer map mode:form=decibelm5@audio.normalizer.filters.mapping@{"mode": "decibel",
    "intensity": 5};
    video width:integer=720@video.size.width; video height:integer=480@video.size.height;
    video aspect ratio:form=16:9@video.aspect@{"width": 16, "height": 9};
    video rate:form=25:1p@video.rate@{"numerator": 25, "denominator": 1, "kind": "progressive"};
    video chroma format:text=4:2:0@video.subsampling;
    horizontal soften:integer=0@video.soften.horizontal.distance;
    horizontal soften passes:integer=1@video.soften.horizontal.passes;
    vertical soften:integer=0@video.soften.vertical.distance;
    vertical soften passes:integer=1@video.soften.vertical.passes;
    eia-608 render captions:form/text=None@caption.renderEia608;
    eia-608 to cea-708 y-adjust:integer=0@caption.conversion.verticalAdjustment;
    eia-608 to cea-708 x-adjust:integer=0@caption.conversion.horizontalAdjustment;
    eia-608 to cea-708 conversion:form=-1@caption.conversion.enable; active:text@debug.active;
    active item:text@debug.activeItem; active source:text@debug.activeSource; burn in:none/text@debug.burnIn;
    eia-608 caption status:text@debug.captionStatus.eia608;
    cea-708 caption status:text@debug.captionStatus.cea708; scte-20 status:text@debug.captionStatus.scte20;
    scte-35 status:text@debug.cueStatus.scte35; realtime status:none/text@debug.realtimeStatus;
    pid status:text@debug.pidStatus; source gop status:text@debug.sourceGopStatus;
    source timestamp status:text@debug.sourceTimestampStatus;
    main layer:form=3@regions.main@{"kind": "global", "index": "3"})";

constexpr char REGION[] = R"(
    B enable:switch=1@P.enable; B:path@P.media.path; B loop:switch=0@P.media.loop;
    B file type:text@P.media.mimeType; B lowest level:path@P.media.leafPath;
    B lowest level file type:text@P.media.leafMimeType; B context id:count/integer=-1@P.media.context;
    B playback:count/number=-1@P.media.played; B state:text@P.media.state; B audio:switch=1@P.audio.enable;
    B audio volume:number=100@P.audio.volume; B force audio:switch=0@P.audio.force;
    B audio enabled:switch=0@P.audio.rendering; B video enabled:none/switch=0@P.video.enable;
    B size:form=50 33.5@P.video.geometry.size@{"width": 50, "height": 33.5};
    B position:form=10 -20@P.video.geometry.position@{"x": 10, "y": -20};
    B force video:switch=0@P.video.force;
    B align:form=top left@P.video.align@{"vertical": "top", "horizontal": "left"};
    B video enabled:none/switch=0@P.video.rendering)";

// The flat keys and the members of the regions begin so.
const std::pair<const char*, const char*> REGIONS[] = {{"item", "item"}, {"urgent", "urgent"},
    {"background music", "music"}, {"eas scroll text", "alerts.text"}, {"eas av", "alerts.media"},
    {"global item 1", "global.0"}, {"global item 2", "global.1"}, {"global item 3", "global.2"},
    {"global item 4", "global.3"}, {"global item 5", "global.4"}, {"global item 6", "global.5"},
    {"global item 7", "global.6"}, {"global item 8", "global.7"}};

Rows channel_rows()
{
    Rows all = rows(CHANNEL);
    for (const std::pair<std::string, std::string> region : REGIONS) {
        all =
            all + rows(replaced(replaced(REGION, "P.", "regions." + region.second + "."), "B", region.first));
        if (region.second == "music")
            all = all + rows("background music default policy:text=if-no-audio@regions.music.policy");
    }
    return all;
}

TEST(Channel, EveryKeyGoesBothWays)
{
    expect_written("channel", channel_rows(), empty_channel_document());
    // Whatever stands alone in the video of a region also writes the alignment. The normalizer's switch is
    // written twice, and what lacks a policy writes a nameless key.
    expect_read("channel", channel_rows(), parsed(R"({"caption": {"conversion": {"force": null}}})"),
        [](Pairs& pairs) {
            pairs.erase(std::unique(pairs.begin(), pairs.end()), pairs.end());
            std::erase_if(
                pairs, [](const auto& pair) { return pair.first.empty() || pair.second == "center center"; });
        });
}

TEST(Channel, ANamelessPairTakesThePlaceOfAMissingPolicy)
{
    Json document = parsed(R"({"caption": {"conversion": {"force": null}}})");
    Pairs pairs;
    for (const KeyRow& row : channel_rows()) {
        if (row.path.back() == "policy") {
            pairs.emplace_back("", "");
            continue;
        }
        document = with(document, row.read_path, row.sample);
        pairs.emplace_back(row.key, row.of_null);
    }
    EXPECT_EQ(consumed("channel", document.dump()), pairs);
}

TEST(Channel, DocumentsChangeOnlyWhatTheyName)
{
    const std::pair<const char*, Pairs> cases[] = {
        {"no JSON", {}},
        {"[1]", {}},
        {R"({"name": "x"})", {{"channel name", "x"}, {"", ""}}},
        {R"({"unknown": 1})", {{"", ""}}},
        {R"({"behavior": null, "reporting": 1, "audio": "x", "video": [], "regions": true})", {{"", ""}}},
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
    constexpr const char* NEVER = nullptr;  // no flat text becomes that JSON
    const struct {
        const char* flat_key;
        const char* path;
        struct {
            const char* flat;
            const char* json;
            const char* back;
        } forms[10];
    } members[] = {
        // The expiration needs both members, the system delay only the object.
        {"expiration delay", "behavior.expirationDelay",
            {{"", "{}", NOTHING}, {"15", R"({"count": 1, "units": "5"})", "15"},
                {"5", R"({"count": 0, "units": "5"})", "05"},
                {"0.1s", R"({"count": 0.1, "units": "seconds"})", "0.10000000000000001s"},
                {"90f", R"({"count": 90, "units": "frames"})", "90f"}, {NEVER, R"({"count": 3})", NOTHING},
                {NEVER, R"({"units": "frames"})", NOTHING}, {NEVER, "null", NOTHING},
                {NEVER, R"({"count": null, "units": "frames"})", "0.500000f"},
                {NEVER, R"({"count": "7", "units": null})", "7s"}}},
        {"system delay", "behavior.systemDelay",
            {{"", "{}", "1s"}, {"0.5s", R"({"count": 0.5, "units": "seconds"})", "0.5s"},
                {"xf", R"({"count": 0, "units": "frames"})", "0f"}, {NEVER, R"({"count": 3})", "3s"},
                {NEVER, R"({"units": "frames"})", "1f"}, {NEVER, "null", "1s"},
                {NEVER, R"({"count": 2, "units": "weeks"})", "2weeks"}}},
        {"reporting", "reporting.service",
            {{"", "null", "/"}, {"/", R"([""])", "/"}, {"var/run", R"(["run"])", "/run"}, {"var", "[]", "/"},
                {"/a//b/", R"(["a", "", "b", ""])", "/a//b/"}}},
        {"last report", "reporting.lastReport", {{NEVER, R"("noon")", "noon"}}},
        {"realtime status", "reporting.lastReport", {{NEVER, R"("noon")", NOTHING}}},
        // A null limit keeps what is stored.
        {"audio normalizer upper level 2=", "audio.normalizer.passes.0.upper", {{NEVER, "-1", NOTHING}}},
        {"audio normalizer hard limit level", "audio.normalizer.passes.0.maximum",
            {{NEVER, "null", NOTHING}}},
        {"audio normalizer hard limit level 2=", "audio.normalizer.passes.1.maximum",
            {{NEVER, "null", NOTHING}}},
        {"audio normalizer map mode", "audio.normalizer.filters.mapping",
            {{"linear", R"({"mode": "linear"})", "linear"}, {"decibel", R"({"mode": "linear"})", "linear"},
                {"decibelmx", R"({"mode": "decibel", "intensity": 0})", "decibelm0"},
                {"decibelm", R"({"mode": "decibel", "intensity": 0})", "decibelm0"},
                {NEVER, R"({"mode": null})", "linear"}, {NEVER, R"({"intensity": 5})", NOTHING},
                {NEVER, R"({"mode": "cubic", "intensity": 5})", "decibelm5"}}},
        {"audio meter", "audio.meter",
            {{"-12.5", "[]", NOTHING},
                {"-inf,-inf", R"(["Number.NEGATIVE_INFINITY", "Number.NEGATIVE_INFINITY"])", NOTHING},
                {"-12.5, -inf", R"([-12.5, "Number.NEGATIVE_INFINITY"])", NOTHING},
                {NEVER, "[-3, -4]", NOTHING}}},
        // The aspect needs both members, the rate none.
        {"video aspect ratio", "video.aspect",
            {{"", "{}", NOTHING}, {"16/9", R"({"width": 16, "height": 9})", "16:9"},
                {"x:", R"({"width": 0, "height": 0})", "0:0"}, {NEVER, R"({"height": 9})", NOTHING},
                {NEVER, R"({"width": 16})", NOTHING}, {NEVER, R"({"width": null, "height": null})", "4:3"}}},
        {"video rate", "video.rate",
            {{"", "null", "30000:1001li bff"}, {"30000/1001", BFF, "30000:1001li bff"},
                {"30000/1001i tff", BFF, "30000:1001li bff"}, {"30000:1001weird", BFF, "30000:1001li bff"},
                {"30000:1001li tff",
                    R"({"numerator": 30000, "denominator": 1001, "kind": "interlaced top-field-first"})",
                    "30000:1001li tff"},
                {NEVER, "{}", "30000:1001li bff"},
                {NEVER, R"({"denominator": 1, "kind": "weird"})", "30000:1weird"}}},
        {"eia-608 render captions", "caption.renderEia608",
            {{"", "null", "None"}, {"None", "null", "None"}, {"TEXT4", R"("TEXT4")", "TEXT4"}}},
        {"eia-608 to cea-708 conversion", "caption.conversion",
            {{NEVER, R"({"enable": true})", NOTHING}, {NEVER, R"({"force": true})", NOTHING},
                {NEVER, R"({"enable": false, "force": true})", "0"}}},
        {"main layer", "regions.main",
            {{"item", R"({"kind": "item"})", "item"}, {"urgent", R"({"kind": "urgent"})", "urgent"},
                {"music", R"({"kind": "music"})", "music"},
                {"text", R"({"kind": "alerts", "part": "text"})", "text"},
                {"media", R"({"kind": "alerts", "part": "media"})", "media"},
                {"", R"({"kind": "global", "index": ""})", ""}, {NEVER, "{}", NOTHING},
                {NEVER, R"({"kind": null})", "item"}, {NEVER, R"({"kind": "alerts"})", ""},
                {NEVER, R"({"kind": "item 1"})", NOTHING}}},
        {"main layer", "regions.main",
            {{NEVER, R"({"kind": "global"})", "0"}, {NEVER, R"({"kind": "global", "index": 3.9})", "3"}}},
        {"urgent size", "regions.urgent.video.geometry.size",
            {{"50", R"({"width": 50, "height": 0})", "50 0"},
                {"50  20", R"({"width": 50, "height": 0})", "50 0"},
                {"x y", R"({"width": 0, "height": 0})", "0 0"}, {NEVER, R"({"width": "a"})", "a 0"}}},
        {"item position", "regions.item.video.geometry.position",
            {{"", R"({"x": 0, "y": 0})", "0 0"}, {NEVER, "null", "0 0"}}},
        {"item position", "regions.item.video.geometry", {{NEVER, "{}", NOTHING}}},
        {"urgent align", "regions.urgent.video.align",
            {{"top", R"({"vertical": "top", "horizontal": "center"})", "top center"},
                {" right", R"({"vertical": "center", "horizontal": "right"})", "center right"},
                {NEVER, R"({"horizontal": "left"})", "center left"}}},
        {"item align", "regions.item.video", {{NEVER, "{}", "center center"}}},
        {"item align", "regions.item.audio", {{NEVER, "{}", NOTHING}}},
        {"background music default policy", "regions.music.policy",
            {{"if no audio", R"("if-no-audio")", "if-no-audio"}, {"if no", R"("if no")", "if no"}}},
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
                EXPECT_EQ(reduce(emitted("channel", {{member.flat_key, flat}}), path), parsed(json))
                    << member.flat_key << "=" << flat;
            }
        }
    }
}

TEST(Channel, OneSwitchConvertsCaptionsInThreePositions)
{
    constexpr char KEY[] = "eia-608 to cea-708 conversion";
    const struct {
        const char* flat;
        bool enable;
        bool force;
        const char* back;
    } cases[] = {{"-1", true, false, "-1"}, {"0", false, false, "0"}, {"1", true, true, "1"},
        {"", true, true, "1"}, {"2", true, true, "1"}};
    for (const auto& row : cases) {
        const Json document = emitted("channel", {{KEY, row.flat}});
        EXPECT_EQ(document["caption"]["conversion"]["enable"], Json(row.enable)) << row.flat;
        EXPECT_EQ(document["caption"]["conversion"]["force"], Json(row.force)) << row.flat;
        EXPECT_EQ(left(document, KEY), row.back) << row.flat;
    }
}

TEST(Channel, AFlatKeyOfTwoMembersShowsInBoth)
{
    Json late = with(empty_channel_document(), {"reporting", "lastReport"}, "late");
    late = with(late, {"debug", "realtimeStatus"}, "late");
    EXPECT_EQ(emitted("channel", {{"last report", "noon"}, {"realtime status", "late"}}), late);
    for (const auto& [base, path] : REGIONS) {
        const JsonPath video = split("regions." + std::string(path) + ".video.enable", ".");
        Json enabled = with(empty_channel_document(), video, true);
        enabled = with(enabled, split("regions." + std::string(path) + ".video.rendering", "."), true);
        EXPECT_EQ(emitted("channel", {{base + std::string(" video enabled"), "1"}}), enabled) << base;
    }
}

TEST(Channel, ABadAspectRatioOrMeterEndsTheRun)
{
    for (const char* ratio : {"16", "16:9:1", "::"}) {
        try {
            emitted("channel", {{"video aspect ratio", ratio}});
            ADD_FAILURE() << ratio;
        } catch (const char* complaint) {
            EXPECT_STREQ(complaint, "Bad ratio format");
        }
    }
    for (const char* meter : {"-3,x", "-3,", ","})
        EXPECT_THROW(emitted("channel", {{"audio meter", meter}}), std::invalid_argument) << meter;
    EXPECT_THROW(emitted("channel", {{"audio meter", "-3,1e999"}}), std::out_of_range);
}

}  // namespace
