// How flat texts and members of documents are each other, coding by coding.
#include "schema/codings.hpp"

#include <gtest/gtest.h>

#include "unit/schema_testing.hpp"

using enum Coding;
using json11::Json;

namespace {

constexpr const char* NEVER_WRITTEN = nullptr;  // no flat text becomes that JSON
constexpr char NOTHING[] = "(nothing)";         // no member, or nothing is stored

// A flat text, the JSON that it becomes, and the flat text that this becomes again.
struct Form {
    const char *flat, *json, *back;
};

const struct {
    Coding coding;
    const char* null_text;
    std::vector<Form> forms;
} CODINGS[] = {
    {TEXT, "usual",
        {{"", R"("")", ""}, {" a", R"(" a")", " a"}, {NEVER_WRITTEN, "null", "usual"},
            {NEVER_WRITTEN, "[1]", "[1]"}, {NEVER_WRITTEN, "true", "true"}, {NEVER_WRITTEN, "2.5", "2.5"}}},
    {NULLABLE_TEXT, "None", {{"", "null", "None"}, {"None", "null", "None"}, {"CC1", R"("CC1")", "CC1"}}},
    {DASHED_TEXT, "", {{"if no audio", R"("if-no-audio")", "if-no-audio"}, {"never", R"("never")", "never"}}},
    {BOOLEAN, "1",
        {{"1", "true", "1"}, {"", "false", "0"}, {" 1", "false", "0"}, {"01", "false", "0"},
            {NEVER_WRITTEN, "null", "1"}, {NEVER_WRITTEN, R"("1")", "0"}, {NEVER_WRITTEN, "1", "0"}}},
    {NULLABLE_BOOLEAN, "", {{"", "null", ""}, {"1", "true", "1"}, {"loud", "false", "0"}}},
    {INTEGER, "7",
        {{"", "0", "0"}, {" -7.9 px", "-7", "-7"}, {"loud", "0", "0"}, {"3000000000", "0", "0"},
            {NEVER_WRITTEN, "null", "7"}, {NEVER_WRITTEN, "-2.9", "-2"}, {NEVER_WRITTEN, R"("loud")", "loud"},
            {NEVER_WRITTEN, "true", "0"}, {NEVER_WRITTEN, "1e10", "2147483647"},
            {NEVER_WRITTEN, "-1e10", "-2147483648"}}},
    {INTEGER, "", {{NEVER_WRITTEN, "null", "0"}}},
    {NULLABLE_INTEGER, "", {{"", "null", ""}, {"loud", "0", "0"}}},
    {COUNT, "-1",
        {{"", "null", "-1"}, {"0", "null", "-1"}, {"x", "null", "-1"}, {"1", "1", "1"}, {"7.9", "7", "7"}}},
    {NUMBER, "",
        {{" -2.5 dB", "-2.5", "-2.5"}, {"1e999", "0", "0"}, {"3e9", "3e9", "3000000000"},
            {NEVER_WRITTEN, "null", "0"}, {NEVER_WRITTEN, "1e-7", "0"},
            {NEVER_WRITTEN, "0.33333333", "0.333333"}, {NEVER_WRITTEN, R"("loud")", "loud"}}},
    {NULLABLE_NUMBER, "", {{"", "null", ""}, {"loud", "0", "0"}, {"-20", "-20", "-20"}}},
    {OPTIONAL_NUMBER, "-24", {{"", NOTHING, NOTHING}, {"loud", "0", "0"}, {NEVER_WRITTEN, "null", "-24"}}},
    {KEPT_NUMBER, "", {{"", "null", NOTHING}, {"-2.5", "-2.5", "-2.5"}}},
    {CONSTANT, "x11", {{"alsa", R"("x11")", "x11"}, {NEVER_WRITTEN, "null", "x11"}}},
    {NULLABLE_CONSTANT, "x11", {{"alsa", R"("x11")", "x11"}, {NEVER_WRITTEN, "null", ""}}},
    {PATH, "",
        {{"", R"([""])", ""}, {"a//b/", R"(["a", "", "b", ""])", "a//b/"}, {NEVER_WRITTEN, R"("x")", ""},
            {NEVER_WRITTEN, R"(["", "mnt", 1])", "/mnt/"}}},
    {ABSOLUTE_PATH, "",
        {{"", "null", "/"}, {"/", R"([""])", "/"}, {"var/run", R"(["run"])", "/run"}, {"var", "[]", "/"}}},
    {DEVICE, "0",
        {{"1", "1", "1"}, {"pci:0:1", R"("pci:0:1")", "pci:0:1"},
            {"3000000000", R"("3000000000")", "3000000000"}}},
    {TIMED_VALUE, "0.5s",
        {{"", "{}", "0.5s"}, {"15", R"({"count": 1, "units": "5"})", "15"},
            {"xf", R"({"count": 0, "units": "frames"})", "0f"}, {NEVER_WRITTEN, "null", "0.5s"},
            {NEVER_WRITTEN, R"({"count": 2, "units": "weeks"})", "2weeks"}}},
    {WHOLE_TIMED_VALUE, "0.5s",
        {{"", "{}", NOTHING}, {"90s", R"({"count": 90, "units": "seconds"})", "90s"},
            {"0.1s", R"({"count": 0.1, "units": "seconds"})", "0.10000000000000001s"},
            {NEVER_WRITTEN, R"({"count": 3})", NOTHING}, {NEVER_WRITTEN, R"({"units": "frames"})", NOTHING},
            {NEVER_WRITTEN, R"({"count": null, "units": "frames"})", "0.5f"},
            {NEVER_WRITTEN, R"({"count": "7", "units": null})", "7s"}}},
    {RATIO, "4:3",
        {{"", "{}", NOTHING}, {"16/9", R"({"width": 16, "height": 9})", "16:9"},
            {NEVER_WRITTEN, R"({"height": 9})", NOTHING}, {NEVER_WRITTEN, R"({"width": 16})", NOTHING},
            {NEVER_WRITTEN, R"({"width": null, "height": null})", "4:3"}}},
    {FRAME_RATE, "30:2li tff",
        {{"", "null", "30:2li tff"},
            {"25/1p", R"({"numerator": 25, "denominator": 1, "kind": "progressive"})", "25:1p"},
            {"3/1i tff", R"({"numerator": 3, "denominator": 1, "kind": "interlaced bottom-field-first"})",
                "3:1li bff"},
            {"3:1li tff", R"({"numerator": 3, "denominator": 1, "kind": "interlaced top-field-first"})",
                "3:1li tff"},
            {"25", R"({"numerator": 25, "denominator": 0, "kind": "interlaced bottom-field-first"})",
                "25:0li bff"},
            {NEVER_WRITTEN, "{}", "30:2li tff"},
            {NEVER_WRITTEN, R"({"denominator": 1, "kind": "odd"})", "30:1odd"}}},
    {SIZE, "",
        {{"50  20", R"({"width": 50, "height": 0})", "50 0"},
            {"50 33.5", R"({"width": 50, "height": 33.5})", "50 33.5"},
            {NEVER_WRITTEN, R"({"width": "a"})", "a 0"}}},
    {POSITION, "",
        {{"", R"({"x": 0, "y": 0})", "0 0"}, {"10 -20", R"({"x": 10, "y": -20})", "10 -20"},
            {NEVER_WRITTEN, "null", "0 0"}}},
    {ALIGNMENT, "center left",
        {{"", R"({"vertical": "center", "horizontal": "left"})", "center left"},
            {" right", R"({"vertical": "center", "horizontal": "right"})", "center right"},
            {NEVER_WRITTEN, R"({"vertical": "top"})", "top left"}, {NEVER_WRITTEN, NOTHING, "center left"}}},
    {MAP_MODE, "linear",
        {{"decibel", R"({"mode": "linear"})", "linear"},
            {"decibelm5", R"({"mode": "decibel", "intensity": 5})", "decibelm5"},
            {"decibelmx", R"({"mode": "decibel", "intensity": 0})", "decibelm0"},
            {NEVER_WRITTEN, R"({"mode": null})", "linear"}, {NEVER_WRITTEN, R"({"intensity": 5})", NOTHING},
            {NEVER_WRITTEN, R"({"mode": "cubic"})", "decibelm0"}}},
    {METER, "",
        {{"-12.5", "[]", NOTHING}, {"-12.5 , -inf ", R"([-12.5, "Number.NEGATIVE_INFINITY"])", NOTHING}}},
    {LAYER, "item",
        {{"music", R"({"kind": "music"})", "music"},
            {"text", R"({"kind": "alerts", "part": "text"})", "text"},
            {"media", R"({"kind": "alerts", "part": "media"})", "media"},
            {"3", R"({"kind": "global", "index": "3"})", "3"}, {NEVER_WRITTEN, R"({"kind": null})", "item"},
            {NEVER_WRITTEN, R"({"kind": "alerts"})", ""}, {NEVER_WRITTEN, R"({"kind": "item 1"})", NOTHING},
            {NEVER_WRITTEN, "{}", NOTHING}, {NEVER_WRITTEN, R"({"kind": "global", "index": 3.9})", "3"}}},
    {THREE_WAY_ON, "1", {{"0", "false", NOTHING}, {"-1", "true", NOTHING}, {"", "true", NOTHING}}},
    {THREE_WAY_FORCED, "0", {{"0", "false", NOTHING}, {"-1", "false", NOTHING}, {"", "true", NOTHING}}},
};

TEST(Codings, AFlatTextItsMemberAndTheFlatTextAgain)
{
    for (const auto& [coding, null_text, forms] : CODINGS)
        for (const auto& [flat, text, back] : forms) {
            const bool is_there = text != NOTHING;
            const Json json = is_there ? parsed(text) : Json();
            const Json around = Json::object();
            const std::string in_row = "coding " + std::to_string(static_cast<int>(coding)) + ": " + text;
            EXPECT_EQ(
                codings::read(coding, {&around, is_there ? &json : nullptr}, null_text).value_or(NOTHING),
                back)
                << in_row;
            if (flat) {
                EXPECT_EQ(
                    codings::written(coding, flat, null_text), is_there ? std::optional(json) : std::nullopt)
                    << in_row;
            }
        }
}

TEST(Codings, OfASettingOfThreePositionsNeedBothMembers)
{
    const std::pair<const char*, const char*> cases[] = {{R"({"enable": true})", NOTHING},
        {R"({"force": true})", NOTHING}, {R"({"enable": true, "force": true})", "1"},
        {R"({"enable": null, "force": false})", "-1"}, {R"({"enable": false, "force": true})", "0"}};
    for (const auto& [text, stored] : cases) {
        const Json both = parsed(text);
        EXPECT_EQ(
            codings::read(THREE_WAY_ON, {&both, member_of(&both, "enable")}, "1").value_or(NOTHING), stored)
            << text;
    }
}

}  // namespace
