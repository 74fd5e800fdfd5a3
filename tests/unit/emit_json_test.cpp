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

TEST(Coders, AbsentKeysReadAsEmpty)
{
    const EmitJson emitter = emitter_of({});
    EXPECT_EQ(emitter.value("k"), "");
    EXPECT_TRUE(emitter.null_or_value("k").is_null());
    EXPECT_EQ(emitter.number("k", 4.5).number_value(), 4.5);
    EXPECT_EQ(emitter.integer("k", 4).int_value(), 4);
    EXPECT_THROW(emitter.get("k"), const char*);
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

TEST(CompositeTexts, SplitIntoTheirParts)
{
    using Parts = std::pair<std::string, std::string>;
    EXPECT_EQ(EmitJson::timed_value("90s"), Parts("90", "s"));
    EXPECT_EQ(EmitJson::timed_value("5"), Parts("", "5"));
    EXPECT_THROW(EmitJson::timed_value(""), std::out_of_range);
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
    const std::pair<const char*, std::tuple<std::string, std::string, std::string>> cases[] = {
        {"60000/1001p", {"60000", "1001", "progressive"}},
        {"30000:1001", {"30000", "1001", "interlaced bottom-field-first"}},
        {"30000:1001li bff", {"30000", "1001", "interlaced bottom-field-first"}},
        {"30000/1001i tff", {"30000", "1001i tff", "interlaced bottom-field-first"}},
        {"25:1:9", {"25", "1", "interlaced bottom-field-first"}},
        {"25", {"25", "", "interlaced bottom-field-first"}},
    };
    for (const auto& [text, parts] : cases)
        EXPECT_EQ(EmitJson::frame_value(text), parts) << text;
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
