#include "schema/emit_json.hpp"

#include <gtest/gtest.h>

using json11::Json;

namespace {

EmitJson emitter_of(std::initializer_list<std::pair<const char*, const char*>> settings)
{
    InfoList list;
    for (const auto& [key, value] : settings)
        list[key].value = value;
    EmitJson emitter;
    emitter.add(list);
    return emitter;
}

TEST(Coders, ReadEachFlatTextAsTheirType)
{
    const struct {
        const char* text;
        const char* boolean;
        const char* null_or_boolean;
        const char* number;
        const char* null_or_number;
        const char* integer;
    } cases[] = {
        {"", "false", "null", "0", "null", "0"},
        {"0", "false", "false", "0", "0", "0"},
        {"1", "true", "true", "1", "1", "1"},
        {"01", "false", "false", "1", "1", "1"},
        {" 1", "false", "false", "1", "1", "1"},
        {"true", "false", "false", "0", "0", "0"},
        {"abc", "false", "false", "0", "0", "0"},
        {"-2.5", "false", "false", "-2.5", "-2.5", "-2"},
        {"7 frames", "false", "false", "7", "7", "7"},
        {"3000000000", "false", "false", "3000000000", "3000000000", "0"},
        {"-2147483648", "false", "false", "-2147483648", "-2147483648", "-2147483648"},
        {"1e999", "false", "false", "0", "0", "1"},
    };
    for (const auto& row : cases) {
        const EmitJson emitter = emitter_of({{"k", row.text}});
        SCOPED_TRACE(row.text);
        EXPECT_EQ(emitter.boolean("k").dump(), row.boolean);
        EXPECT_EQ(emitter.null_or_boolean("k").dump(), row.null_or_boolean);
        EXPECT_EQ(emitter.number("k").dump(), row.number);
        EXPECT_EQ(emitter.null_or_number("k").dump(), row.null_or_number);
        EXPECT_EQ(emitter.integer("k").dump(), row.integer);
    }
}

TEST(Coders, AbsentKeysReadAsEmpty)
{
    const EmitJson emitter = emitter_of({});
    EXPECT_EQ(emitter.value("k"), "");
    EXPECT_TRUE(emitter.null_or_value("k").is_null());
    EXPECT_EQ(emitter.number("k", 4.5).number_value(), 4.5);
    EXPECT_EQ(emitter.integer("k", 4).int_value(), 4);
    EXPECT_THROW(emitter.get("k"), const char*);
}

TEST(Coders, PathsKeepTheirEmptyParts)
{
    EXPECT_EQ(Json(emitter_of({{"k", "/mnt/one"}}).path("k")).dump(), R"(["", "mnt", "one"])");
    EXPECT_EQ(Json(emitter_of({{"k", ""}}).path("k")).dump(), R"([""])");
}

TEST(Coders, TheFirstItemsEntryWinsButTheFlatViewShowsTheLast)
{
    EmitJson emitter = emitter_of({{"k", "first"}});
    InfoList second;
    second["k"].value = "second";
    second["only"].value = "second's";
    emitter.add(second);
    EXPECT_EQ(emitter.value("k"), "first");
    EXPECT_EQ(emitter.value("only"), "second's");
    EXPECT_EQ(emitter.get("k").value, "first");
    EXPECT_EQ(emitter.dump(), R"({"k": "second", "only": "second's"})");
}

TEST(CompositeTexts, TimedValuesSplitOffTheirUnit)
{
    using Parts = std::pair<std::string, std::string>;
    EXPECT_EQ(EmitJson::timed_value("90s"), Parts("90", "s"));
    EXPECT_EQ(EmitJson::timed_value("5"), Parts("", "5"));
    EXPECT_THROW(EmitJson::timed_value(""), std::out_of_range);
}

TEST(CompositeTexts, RatiosAndPositionsHaveExactlyTwoParts)
{
    using Parts = std::pair<std::string, std::string>;
    EXPECT_EQ(EmitJson::ratio_value("16:9"), Parts("16", "9"));
    EXPECT_EQ(EmitJson::ratio_value("16/9"), Parts("16", "9"));
    EXPECT_EQ(EmitJson::position_value("10 20"), Parts("10", "20"));
    for (const char* bad : {"", "16", "16:9:1", "16::9"})
        EXPECT_THROW(EmitJson::ratio_value(bad), const char*) << bad;
    for (const char* bad : {"", "10", "10  20"})
        EXPECT_THROW(EmitJson::position_value(bad), const char*) << bad;
}

TEST(CompositeTexts, FrameRatesTellTheirKindBySuffix)
{
    const struct {
        const char* text;
        std::tuple<std::string, std::string, std::string> parts;
    } cases[] = {
        {"25:1p", {"25", "1", "progressive"}},
        {"60000/1001p", {"60000", "1001", "progressive"}},
        {"30000:1001", {"30000", "1001", "interlaced bottom-field-first"}},
        {"30000:1001li bff", {"30000", "1001", "interlaced bottom-field-first"}},
        {"30000:1001li tff", {"30000", "1001", "interlaced top-field-first"}},
        {"30000/1001i tff", {"30000", "1001i tff", "interlaced bottom-field-first"}},
        {"25:1:9", {"25", "1", "interlaced bottom-field-first"}},
        {"25", {"25", "", "interlaced bottom-field-first"}},
    };
    for (const auto& row : cases)
        EXPECT_EQ(EmitJson::frame_value(row.text), row.parts) << row.text;
}

TEST(DottedKeys, SetMakesObjectsOnItsWayAndReplacesScalars)
{
    const Document tree{{"a", Json::object{{"b", 1}}}, {"s", 5}};
    EXPECT_EQ(Json(EmitJson::set(tree, "a.c", 2)).dump(), R"({"a": {"b": 1, "c": 2}, "s": 5})");
    EXPECT_EQ(Json(EmitJson::set(tree, "s.x.y", true)).dump(), R"({"a": {"b": 1}, "s": {"x": {"y": true}}})");
    EXPECT_EQ(Json(EmitJson::set(tree, "", 2)).dump(), Json(tree).dump());
}

TEST(DottedKeys, FlattenFindsAMemberByItsPath)
{
    const Json tree = Json::object{{"a", Json::object{{"b", 1}}}, {"s", "x"}};
    EXPECT_EQ(JsonEmitterItem::flatten_json_key(".a.b", "", tree), "1");
    EXPECT_EQ(JsonEmitterItem::flatten_json_key(".s", "", tree), "\"x\"");
    EXPECT_EQ(JsonEmitterItem::flatten_json_key(".a.c", "", tree), "");
    EXPECT_EQ(EmitJson::getValue("key", {}).dump(), R"("\"key\"")");
}

}  // namespace
