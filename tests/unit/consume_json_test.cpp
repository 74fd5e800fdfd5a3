#include "schema/consume_json.hpp"

#include <gtest/gtest.h>
#include <stdexcept>

#include "schema/json_text.hpp"
#include "schema/word_pairs.hpp"
#include "unit/schema_testing.hpp"

using json11::Json;

namespace {

TEST(Walk, FindsMembersAndPlaces)
{
    const Json document =
        parsed(R"({"a": {"b": 1, "null": null}, "text": "x", "list": [10, {"m": true}], "0": "zero"})");
    const struct {
        JsonPath path;
        bool exists;
        const char* found;
    } cases[] = {
        {{"a", "b"}, true, "1"},
        {{"a", "c"}, false, "null"},
        {{"a", "null"}, true, "null"},
        {{"none", "x"}, false, "null"},
        {{"0"}, true, "\"zero\""},
        {{"a", "b", "one below"}, true, "null"},
        {{"text", "one below"}, true, "null"},
        {{"text", "one below", "two below"}, false, "null"},
        {{"list"}, true, R"([10, {"m": true}])"},
        {{"list", "0"}, true, "10"},
        {{"list", "1", "m"}, true, "true"},
        {{"list", "2"}, true, "null"},
        {{"list", "2", "m"}, false, "null"},
        {{"list", "-1"}, true, "null"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(testing::PrintToString(row.path));
        EXPECT_EQ(has_key(document, row.path), row.exists);
        EXPECT_EQ(reduce(document, row.path).dump(), row.found);
    }
}

TEST(Walk, AnEmptyPathHoldsNothingAndLeadsNowhere)
{
    EXPECT_FALSE(has_key(Json::object{{"", 1}}, {}));
    try {
        reduce(Json::object{}, {});
        FAIL();
    } catch (const char* complaint) {
        EXPECT_STREQ(complaint, "No key assigned");
    }
}

TEST(Walk, APlaceInAnArrayMustBeANumber)
{
    const Json list = Json::array{1};
    EXPECT_THROW(has_key(list, {"one"}), std::invalid_argument);
    EXPECT_THROW(reduce(list, {"one"}), std::invalid_argument);
}

TEST(Walk, DebuggingPrintsIt)
{
    Params params(parsed(R"({"a": {"b": 1}})"));
    params.push("a").push("b");
    testing::internal::CaptureStdout();
    reduce(params.document, params.path, true);
    params.debug();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "a -> b -> 1\n\na -> b -> \n{\"a\": {\"b\": 1}}\n");
}

TEST(Values, ReadEveryJsonTypeAsFlatText)
{
    const struct {
        const char *json, *string, *boolean, *integer, *number, *array;
    } cases[] = {
        {"null", "", "0", "0", "0", ""},
        {R"("x")", "x", "0", "x", "x", ""},
        {R"("1")", "1", "0", "1", "1", ""},
        {R"("")", "", "0", "", "", ""},
        {"true", "true", "1", "0", "0", ""},
        {"false", "false", "0", "0", "0", ""},
        {"1", "1", "0", "1", "1", ""},
        {"2.5", "2.5", "0", "2", "2.5", ""},
        {"-0.75", "-0.75", "0", "0", "-0.75", ""},
        {"1e3", "1000", "0", "1000", "1000", ""},
        {"1e10", "10000000000", "0", "2147483647", "10000000000", ""},
        {"-1e10", "-10000000000", "0", "-2147483648", "-10000000000", ""},
        {"[]", "[]", "0", "0", "0", ""},
        {R"(["a", 1, null, "b"])", R"(["a", 1, null, "b"])", "0", "0", "0", "a///b"},
        {R"({"a": "1"})", R"({"a": "1"})", "0", "0", "0", ""},
    };
    for (const auto& row : cases) {
        const Params params = Params(Json::object{{"k", parsed(row.json)}}).push("k");
        SCOPED_TRACE(row.json);
        EXPECT_EQ(params.stringValue(), row.string);
        EXPECT_EQ(params.booleanValue(), row.boolean);
        EXPECT_EQ(params.integerValue(), row.integer);
        EXPECT_EQ(params.numberValue(), row.number);
        EXPECT_EQ(params.arrayValue("/"), row.array);
    }
}

TEST(Values, NumbersKeepSixDecimalsAndNoTrailingZeros)
{
    const std::pair<double, const char*> cases[] = {{2.5, "2.5"}, {3.0, "3"}, {0.1, "0.1"}, {100, "100"},
        {0, "0"}, {-20, "-20"}, {1.0 / 3, "0.333333"}, {1e-7, "0"}, {1234567.25, "1234567.25"}};
    for (const auto& [number, text] : cases)
        EXPECT_EQ(number_text(number), text);
    EXPECT_EQ(JsonConsumer::number(2.50), "2.5");
    EXPECT_EQ(JsonConsumer::number("02.50"), "02.50");
    EXPECT_EQ(JsonConsumer::number(true), "0");
    EXPECT_EQ(JsonConsumer::number(nullptr), "0");
}

TEST(ParseItem, ADeclarationDecidesWhatNullWrites)
{
    const struct {
        const char* name;
        Params (*declare)(Params params);
        const char* of_null;
        const char* of_text;
    } cases[] = {
        {"null outranks the default", [](Params p) { return p.string("k", "d").or_null(); }, "", "x"},
        {"null text", [](Params p) { return p.string("k").or_null("none"); }, "none", "x"},
        {"boolean or null", [](Params p) { return p.boolean("k").or_null(); }, "", "0"},
        {"constant", [](Params p) { return p.constant("k", "c"); }, "c", "c"},
        {"constant or null", [](Params p) { return p.constant("k", "c").or_null(); }, "", "c"},
        {"undeclared", [](Params p) { return p.push("k"); }, "", ""},
    };
    for (const auto& row : cases) {
        using Pair = std::pair<std::string, std::string>;
        const auto pair_of = [&row](const char* document) {
            return JsonConsumer::parse_item("flat", row.declare(Params(parsed(document))));
        };
        EXPECT_EQ(pair_of(R"({"k": null})"), Pair("flat", row.of_null)) << row.name;
        EXPECT_EQ(pair_of(R"({"k": "x"})"), Pair("flat", row.of_text)) << row.name;
        EXPECT_EQ(pair_of("{}"), Pair()) << row.name;
    }
}

class BareConsumer : public JsonConsumer {
public:
    using JsonConsumer::create_item;
    using JsonConsumer::JsonConsumer;
    void createItems() override
    {
        create_item("first", top().string("k"));
        create_item("absent", top().string("none"));
        create_item("first", "");
        create_item("", "x");
    }
};

TEST(Items, StayInOrderWithDuplicatesAndLeaveOutWhatIsAbsent)
{
    BareConsumer consumer(R"({"k": "v"})");
    EXPECT_EQ(consumer.document().at("k"), Json("v"));
    consumer.createItems();
    EXPECT_EQ(consumer.items(), (Pairs{{"first", "v"}, {"first", ""}, {"", "x"}}));
}

TEST(Items, BadDocumentsAreEmptyDocuments)
{
    for (const char* bad : {"", "k", R"({"k": "v")", R"({"k": "v"} x)", "[{}]", "null", "5", R"("k")"})
        EXPECT_TRUE(BareConsumer(bad).document().empty()) << bad;
}

TEST(Words, MapBothWaysAndPassWhenUnknown)
{
    const WordPairs units = {{"s", "seconds"}, {"f", "frames"}, {"f", "fields"}, {"sec", "seconds"}};
    const char* const cases[][3] = {{"s", "seconds", "s"}, {"f", "frames", "f"}, {"S", "S", "S"},
        {"", "", ""}, {"s ", "s ", "s "}, {"seconds", "seconds", "s"}, {"fields", "fields", "f"}};
    for (const auto& [text, mapped, reversed] : cases) {
        EXPECT_EQ(map_string(text, units), mapped) << text;
        EXPECT_EQ(reverse_map_string(text, units), reversed) << text;
    }
}

TEST(CompositeTexts, AreBuiltOfTheirParts)
{
    EXPECT_EQ(JsonConsumer::timed_value("90", "s"), "90s");
    EXPECT_EQ(JsonConsumer::ratio_value("16", "9"), "16:9");
    EXPECT_EQ(JsonConsumer::position_value("10", "-20"), "10 -20");
    EXPECT_EQ(JsonConsumer::frame_value("30000", "1001", "li", "bff"), "30000:1001li bff");
    EXPECT_EQ(JsonConsumer::frame_value("25", "1", "p", ""), "25:1p ");
    EXPECT_EQ(JsonConsumer::array_value({"", "mnt", "one"}, "/"), "/mnt/one");
    EXPECT_EQ(JsonConsumer::array_value({}, "/"), "");
}

}  // namespace
