// Tests of the schemas that are a plain list of keys: every key on its own, both ways.
//
// A test states the list. What each kind of key makes of a value stands here.
#pragma once

#include <gtest/gtest.h>

#include <cctype>

#include "unit/schema_testing.hpp"

enum Kind { TEXT, TEXT_OR_NULL, SWITCH, SWITCH_OR_NULL, INTEGER, NUMBER, NUMBER_OR_NULL, DRIVER };

struct FlatKey {
    std::string key;
    Kind kind = TEXT_OR_NULL;
    const char* text = "";  // what a null writes; of a DRIVER the word, whose null writes ""
};

using FlatKeys = std::vector<FlatKey>;

// The audio normalizer's, which several outputs have.
inline const FlatKeys NORMALIZER = {{"audio normalizer attack", INTEGER, "1"},
    {"audio normalizer decay", INTEGER, "100"}, {"audio normalizer minimum level", NUMBER, "-24"},
    {"audio normalizer lower level", NUMBER, "-6"}, {"audio normalizer upper level", NUMBER, "-3"},
    {"audio normalizer upper level 2", NUMBER_OR_NULL}, {"audio normalizer hard limit level", NUMBER_OR_NULL},
    {"audio normalizer hard limit level 2", NUMBER_OR_NULL}, {"audio normalizer bass filter", INTEGER, "0"},
    {"audio normalizer treble filter", INTEGER, "0"}, {"audio normalizer sd-mode", SWITCH, "0"},
    {"audio normalizer enable", SWITCH, "0"}, {"audio normalizer map mode"}};

inline FlatKeys with_normalizer(FlatKeys in_front, const FlatKeys& behind)
{
    in_front.insert(in_front.end(), NORMALIZER.begin(), NORMALIZER.end());
    in_front.insert(in_front.end(), behind.begin(), behind.end());
    return in_front;
}

struct Conversion {
    Kind kind;
    const char* from;
    const char* to;
};

// Flat text to JSON. The empty text comes first, and is also what an absent key reads as.
constexpr Conversion EMITTED[] = {{TEXT, "", R"("")"}, {TEXT, "-1", R"("-1")"},
    {TEXT, "two words", R"("two words")"}, {TEXT_OR_NULL, "", "null"}, {TEXT_OR_NULL, "1", R"("1")"},
    {TEXT_OR_NULL, " x", R"(" x")"}, {SWITCH, "", "false"}, {SWITCH, "1", "true"}, {SWITCH, "-1", "false"},
    {SWITCH, "true", "false"}, {SWITCH_OR_NULL, "", "null"}, {SWITCH_OR_NULL, "1", "true"},
    {SWITCH_OR_NULL, "0", "false"}, {SWITCH_OR_NULL, "12", "false"}, {INTEGER, "", "0"},
    {INTEGER, "-7.9", "-7"}, {INTEGER, "loud", "0"}, {NUMBER, "", "0"}, {NUMBER, "-2.5", "-2.5"},
    {NUMBER, "loud", "0"}, {NUMBER_OR_NULL, "", "null"}, {NUMBER_OR_NULL, "-2.5", "-2.5"},
    {NUMBER_OR_NULL, "loud", "0"}};

// JSON to flat text.
constexpr Conversion CONSUMED[] = {{TEXT, R"("x")", "x"}, {TEXT, R"("")", ""}, {TEXT, "15", "15"},
    {TEXT, "true", "true"}, {TEXT_OR_NULL, R"("x")", "x"}, {TEXT_OR_NULL, "1920", "1920"},
    {TEXT_OR_NULL, R"({"a": 1})", R"({"a": 1})"}, {SWITCH, "true", "1"}, {SWITCH, "false", "0"},
    {SWITCH, "1", "0"}, {SWITCH, R"("1")", "0"}, {SWITCH_OR_NULL, "true", "1"},
    {SWITCH_OR_NULL, "false", "0"}, {SWITCH_OR_NULL, "10", "0"}, {INTEGER, "2.9", "2"},
    {INTEGER, R"("loud")", "loud"}, {INTEGER, "true", "0"}, {NUMBER, "-2.5", "-2.5"}, {NUMBER, "1e3", "1000"},
    {NUMBER, R"("loud")", "loud"}, {NUMBER, "[1]", "0"}, {NUMBER_OR_NULL, "-0.5", "-0.5"},
    {NUMBER_OR_NULL, R"("")", ""}, {NUMBER_OR_NULL, "true", "0"}, {DRIVER, R"("x11")", nullptr},
    {DRIVER, "5", nullptr}, {DRIVER, R"("")", nullptr}};

// The member of a flat key: its blanks, commas, slashes and dashes are underscores, and none begins with a
// digit.
inline std::string member_of(const std::string& key)
{
    std::string member = std::isdigit(static_cast<unsigned char>(key[0])) ? "_" + key : key;
    for (char& c : member)
        if (c == ' ' || c == ',' || c == '/' || c == '-')
            c = '_';
    return member;
}

// The document of an item without settings.
inline json11::Json::object empty_document(const FlatKeys& keys)
{
    json11::Json::object document;
    for (const FlatKey& row : keys) {
        document[member_of(row.key)] = row.text;  // stays for a driver
        for (const Conversion& conversion : EMITTED)
            if (conversion.kind == row.kind && !*conversion.from)
                document[member_of(row.key)] = parsed(conversion.to);
    }
    return document;
}

template <typename Emitter> void expect_emitted(const FlatKeys& keys)
{
    const json11::Json::object empty = empty_document(keys);
    EXPECT_EQ(emitted<Emitter>({}), json11::Json(empty));
    for (const FlatKey& row : keys) {
        if (row.kind == DRIVER) {
            EXPECT_EQ(emitted<Emitter>({{row.key, "another"}}), json11::Json(empty));
        }
        for (const Conversion& conversion : EMITTED)
            if (conversion.kind == row.kind) {
                json11::Json::object expected = empty;
                expected[member_of(row.key)] = parsed(conversion.to);
                EXPECT_EQ(emitted<Emitter>({{row.key, conversion.from}}), json11::Json(expected)) << row.key;
            }
    }
}

template <typename Consumer> void expect_consumed(const FlatKeys& keys)
{
    json11::Json::object nulls;
    Pairs pairs_of_nulls;
    for (const FlatKey& row : keys) {
        nulls[member_of(row.key)] = nullptr;
        pairs_of_nulls.emplace_back(row.key, row.kind == DRIVER ? "" : row.text);
        for (const Conversion& conversion : CONSUMED)
            if (conversion.kind == row.kind) {
                const json11::Json document =
                    json11::Json::object{{member_of(row.key), parsed(conversion.from)}};
                const Pairs expected = {{row.key, conversion.to ? conversion.to : row.text}};
                EXPECT_EQ(consumed<Consumer>(document.dump()), expected) << document.dump();
            }
    }
    EXPECT_EQ(consumed<Consumer>(json11::Json(nulls).dump()), pairs_of_nulls);
    EXPECT_EQ(consumed<Consumer>("{}"), Pairs());
}

// What a text in the settings has become when the item's document comes back.
template <typename Emitter, typename Consumer>
std::string after_trip(const std::string& key, const std::string& text)
{
    for (const auto& [written, value] : consumed<Consumer>(emitted<Emitter>({{key, text}}).dump()))
        if (written == key)
            return value;
    return "nothing";
}
