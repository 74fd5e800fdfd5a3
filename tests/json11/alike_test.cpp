// The stand-in for json11 beside json11 itself, where both are there.
#include <gtest/gtest.h>
#include <json11.hpp>
#include <random>
#include <string>
#include <vector>

#define json11 json11_standin  // as its sources are compiled here
#include "json11/json11.hpp"
#undef json11

namespace {

using Texts = std::vector<std::string>;

// The same texts in each run. About half of them are JSON.
class MadeUp {
public:
    std::string text()
    {
        std::string text = of({" ", "", "\n"}) + value(0) + of({"", "", "\t \r"});
        for (bool is_spoiled = one_of(3) == 0; is_spoiled; is_spoiled = one_of(2) == 0)
            spoil(text);
        return text;
    }

private:
    std::size_t one_of(std::size_t count) { return m_random() % count; }
    const std::string& of(const Texts& texts) { return texts[one_of(texts.size())]; }

    // One of the usual, and now and then one of the others.
    const std::string& of(const Texts& usual, const Texts& broken)
    {
        return of(one_of(60) == 0 ? broken : usual);
    }

    std::string value(int depth)
    {
        if (one_of(200) == 0)
            return nested(195 + one_of(8), value(depth + 1));
        switch (one_of(depth < 4 ? 6 : 3)) {
        case 0:
            return of(
                {"null", "true", "false"}, {"nul", "True", "NaN", "Infinity", "/**/1", "'a'", "", "//\n1"});
        case 1: return number();
        case 2: return string();
        case 3: return listed('[', ']', [&] { return value(depth + 1); });
        default:
            return listed('{', '}', [&] { return string() + of({":", ": ", " :\n"}) + value(depth + 1); });
        }
    }

    std::string nested(std::size_t depth, std::string value)
    {
        for (; depth > 0; --depth)
            value = one_of(2) == 0 ? '[' + value + ']' : "{\"a\":" + value + '}';
        return value;
    }

    template <typename Element> std::string listed(char begin, char end, Element element)
    {
        std::string text{begin};
        for (std::size_t count = one_of(5); count > 0; --count)
            text += element() + of({count > 1 ? " ,\n" : " ", count > 1 ? "," : ""}, {",", ""});
        return text + end;
    }

    std::string digits()
    {
        return of({"0", "1", "12", "123456789", "999999999", "1234567890", "2147483648", "9007199254740993",
                      "18446744073709551616", std::string(400, '7'), std::to_string(m_random())},
            {"00", "05", "", "0x1f"});
    }

    std::string number()
    {
        return of({"", "-"}, {"+", "--"}) + digits() +
               of({"", "", "." + digits(), "." + std::string(400, '0') + digits()}, {".", ".."}) +
               of({"", "", "e" + digits(), "E+3", "e-" + digits(), "e308", "E-324", "e+400"},
                   {"e", "e+", "e3.1"});
    }

    std::string string()
    {
        std::string text = "\"";
        for (std::size_t pieces = one_of(6); pieces > 0; --pieces)
            text += of(
                {"a", "b", "1234", "\\n", "\\/", "\\\\", "\\\"", "\\u0041", "\\u0000", "\\u001F", "\\u2028",
                    "\xe2\x80\xa9", "\xe2\x80", "\x7f", "\xff\xfe", "\xed\xa0\x80", "\\ud83d\\ude00",
                    "\\uD83D", "\\uDE00", "\\ud83d\\ud83d\\ude00", "\\ud83d\\u0041", "\\ude00\\ud83d",
                    "\xc3\xa4", std::string(one_of(300), 'x'), "\\b\\f\\r\\t", "\\ud83d\\n"},
                {"\\u12", "\\u+123", "\\ud8", "\\x", "\n", std::string(1, '\0'), "\x1f", "\""});
        return text + '"';
    }

    // Takes a byte away, puts one in, or cuts the text off.
    void spoil(std::string& text)
    {
        const std::size_t place = one_of(text.size() + 1);
        switch (one_of(4)) {
        case 0: text.erase(place, 1); break;
        case 1: text.insert(place, 1, static_cast<char>(m_random())); break;
        case 2: text.insert(place, of({"\"", "\\", "0", ",", "]", "e"})); break;
        default: text.resize(one_of(8) == 0 ? place : text.size());
        }
    }

    std::mt19937 m_random{1};
};

// What a library makes of a text: whether it is refused, and what is written of it.
template <typename Json> std::string outcome(const std::string& text)
{
    std::string fault;
    const Json json = Json::parse(text, fault);
    return fault.empty() ? json.dump() : "refused" + json.dump();
}

TEST(StandIn, MakesTheSameOfEveryTextAsJson11)
{
    MadeUp made_up;
    int taken = 0;
    for (int i = 0; i < 10'000; ++i) {
        const std::string text = made_up.text();
        const std::string expected = outcome<json11::Json>(text);
        taken += expected.starts_with("refused") ? 0 : 1;
        ASSERT_EQ(outcome<json11_standin::Json>(text), expected) << i << ": " << text;
    }
    EXPECT_GT(taken, 4'000) << "a test of refusals says little of values";
}

}  // namespace
