#include "schema/field.hpp"

#include <gtest/gtest.h>

#include "schema/emit_json.hpp"
#include "unit/schema_testing.hpp"

using json11::Json;

namespace {

constexpr Field ROWS[] = {
    {"text", "a text", Coding::TEXT, "d", ""},
    {"nullable_text", "nullable text", Coding::NULLABLE_TEXT, "", ""},
    {"boolean", "a boolean", Coding::BOOLEAN, "1", ""},
    {"nullable_boolean", "nullable boolean", Coding::NULLABLE_BOOLEAN, "", ""},
    {"integer", "an integer", Coding::INTEGER, "-1", ""},
    {"number", "a number", Coding::NUMBER, "0.5", ""},
    {"nullable_number", "nullable number", Coding::NULLABLE_NUMBER, "", ""},
    {"constant", "a constant", Coding::CONSTANT, "c", ""},
};

class RowsEmitter : public EmitJson {
public:
    Document emitJson() const override { return fields(ROWS, "enc0, "); }
};

class RowsConsumer : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override { create_items(ROWS, top(), "enc0, "); }
};

Pairs settings(std::initializer_list<const char*> values)
{
    Pairs pairs;
    const Field* row = ROWS;
    for (const char* value : values)
        pairs.emplace_back(std::string("enc0, ") + (row++)->flat_key, value);
    return pairs;
}

TEST(Fields, EachCodingWritesItsJsonType)
{
    EXPECT_EQ(emitted<RowsEmitter>({{"a text", "without the prefix"}}), parsed(R"({
        "text": "", "nullable_text": null, "boolean": false, "nullable_boolean": null,
        "integer": 0, "number": 0, "nullable_number": null, "constant": "c"})"));
    EXPECT_EQ(emitted<RowsEmitter>(settings({"t", "n", "1", "0", "2.5", "2.5", "2.5", "x"})), parsed(R"({
        "text": "t", "nullable_text": "n", "boolean": true, "nullable_boolean": false,
        "integer": 2, "number": 2.5, "nullable_number": 2.5, "constant": "c"})"));
}

TEST(Fields, EachCodingReadsItsJsonTypeAndNull)
{
    EXPECT_EQ(consumed<RowsConsumer>(R"({
        "constant": "x", "nullable_number": 2.5, "number": 2.5, "integer": 2.5,
        "nullable_boolean": false, "boolean": true, "nullable_text": "n", "text": "t"})"),
        settings({"t", "n", "1", "0", "2", "2.5", "2.5", "c"}));
    EXPECT_EQ(consumed<RowsConsumer>(R"({
        "text": null, "nullable_text": null, "boolean": null, "nullable_boolean": null,
        "integer": null, "number": null, "nullable_number": null, "constant": null})"),
        settings({"d", "", "1", "", "-1", "0.5", "", ""}));
    EXPECT_EQ(consumed<RowsConsumer>("{}"), Pairs{});
}

}  // namespace
