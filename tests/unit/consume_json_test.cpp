#include "schema/consume_json.hpp"

#include <gtest/gtest.h>
#include <stdexcept>

#include "schema/json_text.hpp"
#include "unit/schema_testing.hpp"

using json11::Json;

namespace {

TEST(Walk, FindsMembersAndPlaces)
{
    const Json document = parsed(R"({"a": {"b": 1, "null": null}, "list": [10, {"m": true}], "0": "zero"})");
    const struct {
        JsonPath path;
        bool exists;
        const char* found;
    } cases[] = {{{"a", "b"}, true, "1"}, {{"a", "c"}, false, "null"}, {{"a", "null"}, true, "null"},
        {{"none", "x"}, false, "null"}, {{"0"}, true, "\"zero\""}, {{"a", "b", "one below"}, true, "null"},
        {{"a", "b", "one below", "two below"}, false, "null"}, {{"list", "1", "m"}, true, "true"},
        {{"list", "2"}, true, "null"}, {{"list", "2", "m"}, false, "null"}};
    for (const auto& row : cases) {
        EXPECT_EQ(has_key(document, row.path), row.exists) << testing::PrintToString(row.path);
        EXPECT_EQ(reduce(document, row.path).dump(), row.found) << testing::PrintToString(row.path);
    }
    EXPECT_FALSE(has_key(document, {}));
    EXPECT_THROW(reduce(document, {}), const char*);
    EXPECT_THROW(has_key(document, {"list", "one"}), std::invalid_argument);
}

TEST(Values, NumbersKeepSixDecimalsAndIntegersTheirRange)
{
    const std::pair<double, const char*> numbers[] = {
        {3.0, "3"}, {-20, "-20"}, {1.0 / 3, "0.333333"}, {1e-7, "0"}, {1234567.25, "1234567.25"}};
    for (const auto& [number, text] : numbers)
        EXPECT_EQ(number_text(number), text);
    EXPECT_EQ(integer_text(1e10), "2147483647");
    EXPECT_EQ(integer_text(-1e10), "-2147483648");
}

TEST(ParseItem, ADeclarationDecidesWhatNullWrites)
{
    using Type = Params::Type;
    const Params params(parsed(R"({"k": null})"));
    const auto text = [](const Params& declared) {
        return JsonConsumer::parse_item("flat", declared).second;
    };
    EXPECT_EQ(text(Params(params).declare(Type::STRING, "k", "default").or_null()), "");
    EXPECT_EQ(text(Params(params).declare(Type::INTEGER, "k").or_null("none")), "none");
    EXPECT_EQ(text(Params(params).declare(Type::BOOLEAN, "k", "1")), "1");
    EXPECT_EQ(text(Params(params).declare(Type::CONST, "k", "c")), "c");
    EXPECT_EQ(
        JsonConsumer::parse_item("flat", Params(params).declare(Type::NUMBER, "absent", "1")).first, "");
}

}  // namespace
