#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <iterator>
#include <rapidjson/reader.h>
#include <string_view>
#include <utility>

#include "json11.hpp"

namespace json11 {

namespace {

constexpr std::size_t DEEPEST = 200;  // how many arrays and objects a value may lie in

// The text as RapidJSON takes it, which refuses numbers that no double holds and halves of surrogate pairs.
// So it sees two digits of a row at most, and bytes in the place of surrogates.
class Source {
public:
    using Ch = char;

    explicit Source(const std::string& text) : m_text(text) {}

    // What RapidJSON asks of a stream, whose end is a NUL.
    char Peek() const { return m_bytes.empty() ? m_text[m_at] : m_bytes.front(); }
    std::size_t Tell() const { return m_at; }
    Ch* PutBegin() { return nullptr; }
    std::size_t PutEnd(Ch*) { return 0; }
    void Put(char byte) { m_bytes += byte; }
    char Take()
    {
        const char c = Peek();
        m_at += m_bytes.empty() ? 1 : 0;
        m_bytes.erase(0, 1);
        const bool is_escaped =
            std::exchange(m_is_after_backslash, m_in_string && c == '\\' && !m_is_after_backslash);
        m_in_string = m_in_string != (c == '"' && !is_escaped);
        if (!m_in_string)
            skip_digits();
        else if (!m_is_after_backslash && m_bytes.empty())
            replace_surrogates();
        return c;
    }

    // Whether nothing is left, not even behind a NUL.
    bool is_at_end() const { return m_at == m_text.size(); }

    // The number that has just been taken. A whole one is never a negative zero.
    double number() const
    {
        const std::string_view taken = std::string_view(m_text).substr(0, m_at);
        const std::size_t begin = taken.find_last_not_of("+-.0123456789Ee") + 1;
        const double number = std::strtod(m_text.c_str() + begin, nullptr);
        return taken.find_first_of(".Ee", begin) == taken.npos ? number + 0.0 : number;
    }

private:
    bool is_digit(std::size_t place) const { return m_text[place] >= '0' && m_text[place] <= '9'; }

    void skip_digits()
    {
        if (m_at >= 2 && is_digit(m_at - 2) && is_digit(m_at - 1))
            while (is_digit(m_at))
                ++m_at;
    }

    // A pair is one character, and a half alone has bytes of its own.
    void replace_surrogates()
    {
        const unsigned unit = escaped_unit(m_at), next = escaped_unit(m_at + 6);
        if (unit >> 11 != 0xd800 >> 11)
            return;
        const bool is_pair = unit >> 10 == 0xd800 >> 10 && next >> 10 == 0xdc00 >> 10;
        rapidjson::UTF8<>::Encode(*this, is_pair ? 0x10000 + (unit % 0x400 << 10) + next % 0x400 : unit);
        m_at += is_pair ? 12 : 6;
    }

    // What stands at that place as "\uXXXX", 0 if nothing does.
    unsigned escaped_unit(std::size_t place) const
    {
        const std::string_view text = std::string_view(m_text).substr(std::min(place, m_text.size()), 6);
        unsigned unit = 0;
        const bool is_escape =
            text.size() == 6 && text.starts_with("\\u") &&
            std::from_chars(text.data() + 2, text.data() + 6, unit, 16).ptr == text.data() + 6;
        return is_escape ? unit : 0;
    }

    const std::string& m_text;
    std::size_t m_at = 0;
    std::string m_bytes;  // come first
    bool m_in_string = false;
    bool m_is_after_backslash = false;
};

// Puts the values together as they are read.
class Builder : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Builder> {
public:
    using Size = rapidjson::SizeType;

    explicit Builder(const Source& source) : m_source(source) {}

    Json whole() const { return m_values.front(); }

    bool Null() { return put(nullptr); }
    bool Bool(bool value) { return put(value); }
    bool Default() { return put(m_source.number()); }  // of every other kind
    bool String(const char* text, Size size, bool) { return put(std::string(text, size)); }
    bool Key(const char* text, Size size, bool) { return m_names.emplace_back(text, size), true; }
    bool StartArray() { return m_depth++ <= DEEPEST; }
    bool StartObject() { return m_depth++ <= DEEPEST; }
    bool EndArray(Size count) { return --m_depth, put(last(m_values, count)); }
    bool EndObject(Size count)
    {
        Json::object members;
        const std::vector<std::string> names = last(m_names, count);
        const Json::array values = last(m_values, count);
        for (Size i = 0; i < count; ++i)
            members[names[i]] = values[i];
        return --m_depth, put(std::move(members));
    }

private:
    bool put(Json value)
    {
        m_values.push_back(std::move(value));
        return m_depth <= DEEPEST;
    }

    template <typename Type> static std::vector<Type> last(std::vector<Type>& all, Size count)
    {
        const auto first = std::make_move_iterator(all.end() - count);
        std::vector<Type> taken(first, std::make_move_iterator(all.end()));
        all.resize(all.size() - count);
        return taken;
    }

    const Source& m_source;
    std::size_t m_depth = 0;
    Json::array m_values;              // of what is not closed yet
    std::vector<std::string> m_names;  // of those that are members
};

// They tell nothing of what is in front of the fault: all texts that end in the same one have it in the same
// words.
std::string words(rapidjson::ParseErrorCode fault, const Source& at)
{
    if (fault == rapidjson::kParseErrorTermination)
        return "exceeded maximum nesting depth";
    if (at.is_at_end())
        return "unexpected end of input";
    const char c = at.Peek();
    const std::string shown = c < ' ' || c > '~' ? "" : std::string("'") + c + "' ";
    const std::string expected =
        fault == rapidjson::kParseErrorObjectMissName            ? "expected '\"' in object, got "
        : fault == rapidjson::kParseErrorValueInvalid            ? "expected value, got "
        : fault == rapidjson::kParseErrorDocumentRootNotSingular ? "unexpected trailing "
                                                                 : "unexpected ";
    return expected + shown + "(" + std::to_string(c) + ")";
}

}  // namespace

Json Json::parse(const std::string& text, std::string& fault)
{
    Source source(text);
    Builder builder(source);
    const rapidjson::ParseErrorCode code = rapidjson::Reader().Parse(source, builder).Code();
    if (code == rapidjson::kParseErrorNone && source.is_at_end())
        return builder.whole();
    fault = words(code, source);
    return nullptr;
}

}  // namespace json11
