// The stand-in for json11 beside json11 itself, where both are there.
#include <gtest/gtest.h>
#include <json11.hpp>
#include <string>

#define json11 json11_standin  // as its sources are compiled here
#include "json11/json11.hpp"
#undef json11

using namespace std::string_literals;

namespace {

const std::string SEEDS[] = {
    R"( { "a" : [1, true,false ,null], "a": {}, "": [ ] , "b": {"c": [[], {"d": 2}]}} )",
    R"([0, -0, -12.50, 123456789, 999999999, 1234567890, -2147483648, 2147483648, 9007199254740993,
        18446744073709551616, 0.1, 1e308, 1E-324, -1e+400, 5e-3, 0.000e1])",
    "[" + std::string(400, '7') + ", -0." + std::string(400, '0') + "1, 1e" + std::string(20, '9') + "]",
    R"(["", "\"\\\/\b\f\n\r\t", "\u0041\u0000\u001F\u2028\u00e4", "\ud83d\ude00", "\uD83D", "\uDE00",
        "\ud83d\ud83d\ude00", "\ud83d\u0041", "\ude00\ud83d", "\ud83d\n", {"\u0061": 1}])",
    "\"a\x7f \xc3\xa4 \xe2\x80\xa9 \xe2\x80 \xff\xfe \xed\xa0\x80 " + std::string(300, 'x') + "\"",
};

// What takes the place of nothing, or of a byte or two, anywhere in a seed.
const std::string PIECES[] = {"", "0", "1", "-", "+", ".", "e", "E+", "0x1", "\"", "\\", "\\u12", "\\ud83d",
    "\\uDE00", "\\x", ",", ":", "[", "]", "[]", "{", "}", " ", "\n", "\t", "\v", "\x1f", "\0"s, "\xff",
    "null", "True", "NaN", "'", "//\n", "/**/"};

// What a library makes of a text: whether it is refused, and what is written of it.
template <typename Json> std::string outcome(const std::string& text)
{
    std::string fault;
    const Json json = Json::parse(text, fault);
    return fault.empty() ? json.dump() : "refused" + json.dump();
}

// Whether the text is taken. Both make the same of it.
bool is_taken_alike(const std::string& text)
{
    const std::string expected = outcome<json11::Json>(text);
    EXPECT_EQ(outcome<json11_standin::Json>(text), expected) << text;
    return !expected.starts_with("refused");
}

TEST(StandIn, MakesTheSameOfEveryTextAsJson11)
{
    int taken = 0;
    for (const std::string& seed : SEEDS)
        for (std::size_t place = 0; place <= seed.size(); place += 1 + seed.size() / 200)
            for (const std::size_t erased : {std::size_t{0}, std::size_t{1}, seed.size() - place})
                for (const std::string& piece : PIECES)
                    taken += is_taken_alike(std::string(seed).replace(place, erased, piece)) ? 1 : 0;
    EXPECT_GT(taken, 5'000) << "a test of refusals says little of values";
}

TEST(StandIn, NestsAsDeepAsJson11)
{
    for (const char* inner : {"1", "[]", "{}"})
        for (const auto& [begin, end] : {std::pair("[", "]"), std::pair("{\"a\":", "}")}) {
            std::string text = inner;
            for (int depth = 1; depth < 205; ++depth)
                is_taken_alike(text.insert(0, begin).append(end));
        }
}

}  // namespace
