#include "schema/emit_json.hpp"

#include <gtest/gtest.h>

using json11::Json;

namespace {

InfoList list_of(std::initializer_list<std::pair<const char*, const char*>> settings)
{
    InfoList list;
    for (const auto& [key, value] : settings)
        list[key].value = value;
    return list;
}

TEST(Coders, TheFirstItemsEntryWinsButTheFlatViewShowsTheLast)
{
    EmitJson emitter;
    EXPECT_EQ(emitter.number("k", 4.5).number_value(), 4.5);
    EXPECT_EQ(emitter.integer("k", 4), Json(4));
    EXPECT_THROW(emitter.get("k"), const char*);
    emitter.add(list_of({{"k", "first"}, {"m", "1"}}));
    emitter.add(list_of({{"a", "second's"}, {"k", "second"}}));
    emitter.add(list_of({{"a", "third"}, {"l", "third's"}, {"z", ""}}));
    EXPECT_EQ(emitter.value("k"), "first");
    EXPECT_EQ(emitter.value("a"), "second's");
    EXPECT_EQ(emitter.get("l").value, "third's");
    EXPECT_EQ(emitter.get("l").key, "l");
    EXPECT_EQ(emitter.dump(), R"({"a": "third", "k": "second", "l": "third's", "m": "1", "z": ""})");
}

TEST(Coders, ANumberOutOfRangeLeavesTheNextOneAlone)
{
    EXPECT_EQ(EmitJson::read_number("1e999", -1), -1);
    EXPECT_EQ(EmitJson::read_number("2.5"), 2.5);
    EXPECT_EQ(EmitJson::read_integer("99999999999999999999", -1), -1);
    EXPECT_EQ(EmitJson::read_integer("7"), 7);
}

TEST(CompositeTexts, SplitIntoTheirParts)
{
    using Parts = std::pair<std::string, std::string>;
    EXPECT_EQ(EmitJson::timed_value("5"), Parts("", "5"));
    EXPECT_THROW(EmitJson::timed_value(""), std::out_of_range);
    EXPECT_EQ(EmitJson::position_value("10 20"), Parts("10", "20"));
    for (const char* bad : {"", "10", "10  20"})
        EXPECT_THROW(EmitJson::position_value(bad), const char*) << bad;
    const std::pair<const char*, std::tuple<std::string, std::string, std::string>> rates[] = {
        {"60000/1001p", {"60000", "1001", "progressive"}},
        {"25", {"25", "", "interlaced bottom-field-first"}},
        {"30000/1001i tff", {"30000", "1001i tff", "interlaced bottom-field-first"}}};
    for (const auto& [text, parts] : rates)
        EXPECT_EQ(EmitJson::frame_value(text), parts) << text;
}

TEST(DottedKeys, SetMakesObjectsOnItsWayAndFlattenFindsThem)
{
    const Document tree{{"a", Json::object{{"b", 1}}}, {"s", 5}};
    EXPECT_EQ(Json(EmitJson::set(tree, "a.c", 2)).dump(), R"({"a": {"b": 1, "c": 2}, "s": 5})");
    EXPECT_EQ(Json(EmitJson::set(tree, "s.x.y", true)).dump(), R"({"a": {"b": 1}, "s": {"x": {"y": true}}})");
    EXPECT_EQ(JsonEmitterItem::flatten_json_key(".a.b", "", tree), "1");
    EXPECT_EQ(JsonEmitterItem::flatten_json_key(".a.c", "", tree), "");
    EXPECT_EQ(EmitJson::getValue("key", {}).dump(), R"("\"key\"")");
}

}  // namespace
