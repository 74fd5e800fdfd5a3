// What every coding says:
//
//     written(text, null_text)   the flat text as JSON, with std::nullopt where the object lacks the member
//     read(json, null_text)      the JSON as flat text, with std::nullopt where nothing is written
//     takes(null_text)           whether it can be a row's null text, as coding.hpp tells what that is
//     JSON                       which JSON is taken, as a JSON Schema; or
//     PARTS                      the members of a composite, which is an object
//
// What a program does not use of this is not part of it.
#pragma once

#include <algorithm>
#include <boost/algorithm/string/classification.hpp>
#include <boost/algorithm/string/trim.hpp>
#include <optional>
#include <span>

#include "schema/coding.hpp"
#include "schema/composite_text.hpp"
#include "schema/json_path.hpp"
#include "schema/json_text.hpp"

namespace codings {

using json11::Json;
using enum Coding;
using MaybeText = std::optional<std::string>;

// Where a member stands: the object that should hold it, and the member. nullptr for what is not there.
struct Place {
    const Json* object;
    const Json* member;
};

// A part of a composite: null where it is missing, as where it is null.
inline const Json& part(const Json& json, const char* name)
{
    static const Json NONE;
    const Json* const member = member_of(&json, name);
    return member ? *member : NONE;
}

inline bool has_parts(const Json& json, const char* first, const char* second)
{
    return member_of(&json, first) && member_of(&json, second);
}

constexpr bool is_integer_text(std::string_view text)
{
    text.remove_prefix(text.starts_with('-') ? 1 : 0);
    return !text.empty() && text.find_first_not_of("0123456789") == text.npos;
}

constexpr bool is_number_text(std::string_view text)
{
    const std::size_t dot = text.find('.');
    return is_integer_text(text.substr(0, dot)) &&
           (dot == text.npos || is_integer_text(text.substr(dot + 1)));
}

// Whether the text is two that these accept, with the separator between them.
template <typename First, typename Second>
constexpr bool is_pair(std::string_view text, char separator, First is_first, Second is_second)
{
    const std::size_t at = text.find(separator);
    return at != text.npos && is_first(text.substr(0, at)) && is_second(text.substr(at + 1));
}

// Whether the text is one of these, with "|" between two.
constexpr bool is_among(std::string_view text, std::string_view words)
{
    const std::size_t end = words.find('|');
    return text == words.substr(0, end) || (end != words.npos && is_among(text, words.substr(end + 1)));
}

// A member of a composite. What is taken is told by a coding, and words as a row's marks tell them.
struct Part {
    const char* name;
    Coding coding = TEXT;
    const char* words = "";
    bool is_word = false;  // nothing but these words is taken
};

template <Coding CODING> struct Of;

struct NoNullText {
    static constexpr bool takes(std::string_view text) { return text.empty(); }
};

template <> struct Of<TEXT> {
    static constexpr bool takes(std::string_view) { return true; }
    static Json written(std::string text, std::string_view) { return Json(std::move(text)); }
    static MaybeText read(const Json& json, std::string_view null_text)
    {
        return string_text(json, null_text);
    }
    static constexpr char JSON[] = R"({"type": ["string", "number", "null"]})";
};

template <> struct Of<NULLABLE_TEXT> : Of<TEXT> {
    static Json written(std::string text, std::string_view null_text)
    {
        return text.empty() || text == null_text ? Json() : Json(std::move(text));
    }
};

template <> struct Of<DASHED_TEXT> : Of<TEXT> {
    static Json written(const std::string& text, std::string_view)
    {
        return text == "if no audio" ? "if-no-audio" : text;
    }
};

// One value, by the functions that make it of a text and read it.
template <auto VALUE, auto TEXT_OF> struct Scalar {
    static Json written(const std::string& text, std::string_view) { return VALUE(text); }
    static MaybeText read(const Json& json, std::string_view null_text) { return TEXT_OF(json, null_text); }
};

inline bool is_on(const std::string& text)
{
    return text == "1";
}

template <> struct Of<BOOLEAN> : Scalar<is_on, boolean_text> {
    static constexpr bool takes(std::string_view text) { return text.empty() || is_among(text, "0|1|-1"); }
    static constexpr char JSON[] = R"({"type": ["boolean", "null"]})";
};

template <> struct Of<INTEGER> : Scalar<integer_in, integer_text> {
    static constexpr bool takes(std::string_view text) { return text.empty() || is_integer_text(text); }
    static constexpr char JSON[] =
        R"({"type": ["integer", "string", "null"], "minimum": -2147483648, "maximum": 2147483647,
            "pattern": "^(0|-?[1-9][0-9]*)$"})";
};

template <> struct Of<NUMBER> : Scalar<number_in, number_text> {
    static constexpr bool takes(std::string_view text) { return text.empty() || is_number_text(text); }
    static constexpr char JSON[] =
        R"({"type": ["number", "string", "null"], "pattern": "^-?(0|[1-9][0-9]*)(\\.[0-9]*[1-9])?$"})";
};

// Null for the empty text; and a null writes the null text, also where that is empty.
template <Coding CODING> struct Nullable : Of<CODING> {
    static Json written(const std::string& text, std::string_view null_text)
    {
        return text.empty() ? Json() : Of<CODING>::written(text, null_text);
    }
    static MaybeText read(const Json& json, std::string_view null_text)
    {
        return json.is_null() ? std::string(null_text) : Of<CODING>::read(json, null_text);
    }
};

template <> struct Of<NULLABLE_BOOLEAN> : Nullable<BOOLEAN> {
};
template <> struct Of<NULLABLE_INTEGER> : Nullable<INTEGER> {
};
template <> struct Of<NULLABLE_NUMBER> : Nullable<NUMBER> {
};

// What is counted starts at 1; "-1" and 0 stand for none.
template <> struct Of<COUNT> : Nullable<INTEGER> {
    static Json written(const std::string& text, std::string_view)
    {
        const int count = integer_in(text);
        return count < 1 ? Json() : Json(count);
    }
};

template <> struct Of<OPTIONAL_NUMBER> : Of<NUMBER> {
    static std::optional<Json> written(const std::string& text, std::string_view null_text)
    {
        return text.empty() ? std::nullopt : std::optional(Of<NUMBER>::written(text, null_text));
    }
};

template <> struct Of<KEPT_NUMBER> : Nullable<NUMBER> {
    static constexpr bool takes(std::string_view text) { return text.empty(); }
    static MaybeText read(const Json& json, std::string_view null_text)
    {
        return json.is_null() ? MaybeText() : Of<NUMBER>::read(json, null_text);
    }
};

template <> struct Of<CONSTANT> : Of<TEXT> {
    static Json written(const std::string&, std::string_view constant) { return std::string(constant); }
    static MaybeText read(const Json&, std::string_view constant) { return std::string(constant); }
};

template <> struct Of<NULLABLE_CONSTANT> : Of<CONSTANT> {
    static MaybeText read(const Json& json, std::string_view constant)
    {
        return std::string(json.is_null() ? "" : constant);
    }
};

template <> struct Of<PATH> : NoNullText {
    static Json written(const std::string& text, std::string_view) { return split(text, "/"); }
    static MaybeText read(const Json& json, std::string_view) { return array_text(json, "/"); }
    static constexpr char JSON[] = R"({"type": ["array", "null"], "items": {"type": "string"}})";
};

// A relative path loses its first name, and no parts at all are the root directory.
template <> struct Of<ABSOLUTE_PATH> : Of<PATH> {
    static Json written(const std::string& text, std::string_view)
    {
        if (text.empty())
            return nullptr;
        std::vector<std::string> parts = split(text, "/");
        parts.erase(parts.begin());
        return parts;
    }
    static MaybeText read(const Json& json, std::string_view) { return "/" + array_text(json, "/"); }
};

template <> struct Of<DEVICE> : Of<TEXT> {
    static Json written(const std::string& text, std::string_view)
    {
        const std::optional<int> index = parse_integer(text);
        return index ? Json(*index) : Json(text);
    }
    static constexpr char JSON[] = R"({"type": ["string", "integer", "null"]})";
};

template <> struct Of<TIMED_VALUE> {
    static constexpr WordPairs UNITS = {{"seconds", "s"}, {"frames", "f"}};

    static constexpr bool takes(std::string_view text)
    {
        return (text.ends_with('s') || text.ends_with('f')) &&
               is_number_text(text.substr(0, text.size() - 1));
    }
    static Json written(const std::string& text, std::string_view)
    {
        if (text.empty())
            return Json::object{};
        const auto [count, unit] = timed_value(text);
        return Json::object{{"count", number_in(count)}, {"units", reverse_map_string(unit, UNITS)}};
    }
    static MaybeText read(const Json& json, std::string_view null_text)
    {
        const auto [count, unit] = timed_value(std::string(null_text));
        return string_text(part(json, "count"), count) +
               map_string(string_text(part(json, "units"), unit), UNITS);
    }
    static constexpr Part PARTS[] = {{"count", NUMBER}, {"units", TEXT, "seconds|frames"}};
};

// So that the {} of a value that is not set leaves the flat key alone.
template <> struct Of<WHOLE_TIMED_VALUE> : Of<TIMED_VALUE> {
    static MaybeText read(const Json& json, std::string_view null_text)
    {
        return has_parts(json, "count", "units") ? Of<TIMED_VALUE>::read(json, null_text) : MaybeText();
    }
};

// The {} of a ratio that is not set leaves the flat key alone too.
template <> struct Of<RATIO> {
    static constexpr bool takes(std::string_view text)
    {
        return is_pair(text, ':', is_integer_text, is_integer_text);
    }
    static Json written(const std::string& text, std::string_view)
    {
        if (text.empty())
            return Json::object{};
        const auto [width, height] = ratio_value(text);
        return Json::object{{"width", integer_in(width)}, {"height", integer_in(height)}};
    }
    static MaybeText read(const Json& json, std::string_view null_text)
    {
        if (!has_parts(json, "width", "height"))
            return std::nullopt;
        const auto [width, height] = ratio_value(std::string(null_text));
        return integer_text(part(json, "width"), width) + ":" + integer_text(part(json, "height"), height);
    }
    static constexpr Part PARTS[] = {{"width", INTEGER}, {"height", INTEGER}};
};

template <> struct Of<FRAME_RATE> {
    static constexpr bool takes(std::string_view text)
    {
        return is_pair(text, ':', is_integer_text, [](std::string_view right) {
            const std::size_t end = right.find_first_not_of("0123456789");
            return end > 0 && std::any_of(FRAME_KINDS.begin(), FRAME_KINDS.end(),
                                  [&](const auto& kind) { return right.substr(end) == kind.second; });
        });
    }
    static Json written(const std::string& text, std::string_view)
    {
        if (text.empty())
            return nullptr;
        const auto [numerator, denominator, kind] = frame_value(text);
        return Json::object{
            {"numerator", integer_in(numerator)},
            {"denominator", integer_in(denominator)},
            {"kind", kind},
        };
    }
    static MaybeText read(const Json& json, std::string_view null_text)
    {
        const auto [numerator, denominator, kind] = frame_value(std::string(null_text));
        return integer_text(part(json, "numerator"), numerator) + ":" +
               integer_text(part(json, "denominator"), denominator) +
               map_string(string_text(part(json, "kind"), kind), FRAME_KINDS);
    }
    static constexpr Part PARTS[] = {{"numerator", INTEGER}, {"denominator", INTEGER},
        {"kind", TEXT, "progressive|interlaced bottom-field-first|interlaced top-field-first"}};
};

// The two words of a pair. A word that the text lacks is empty.
inline std::vector<std::string> two_words(const std::string& text)
{
    std::vector<std::string> words = split(text, " ");
    words.resize(2);
    return words;
}

inline constexpr char WIDTH[] = "width", HEIGHT[] = "height", X[] = "x", Y[] = "y";

template <const char* FIRST, const char* SECOND> struct TwoNumbers : NoNullText {
    static Json written(const std::string& text, std::string_view)
    {
        const std::vector<std::string> words = two_words(text);
        return Json::object{{FIRST, number_in(words[0])}, {SECOND, number_in(words[1])}};
    }
    static MaybeText read(const Json& json, std::string_view)
    {
        return number_text(json[FIRST]) + " " + number_text(json[SECOND]);
    }
    static constexpr Part PARTS[] = {{FIRST, NUMBER}, {SECOND, NUMBER}};
};

template <> struct Of<SIZE> : TwoNumbers<WIDTH, HEIGHT> {
};
template <> struct Of<POSITION> : TwoNumbers<X, Y> {
};

template <> struct Of<ALIGNMENT> {
    static constexpr Part PARTS[] = {
        {"vertical", TEXT, "top|center|bottom"}, {"horizontal", TEXT, "left|center|right"}};

    static constexpr bool takes(std::string_view text)
    {
        const auto is_word_of = [](const Part& part) {
            return [&part](std::string_view word) { return is_among(word, part.words); };
        };
        return is_pair(text, ' ', is_word_of(PARTS[0]), is_word_of(PARTS[1]));
    }
    static Json written(const std::string& text, std::string_view null_text)
    {
        std::vector<std::string> words = two_words(text);
        const std::vector<std::string> usual = two_words(std::string(null_text));
        for (std::size_t i = 0; i < 2; ++i)
            if (words[i].empty())
                words[i] = usual[i];
        return Json::object{{"vertical", words[0]}, {"horizontal", words[1]}};
    }
    static MaybeText read(const Place& at, std::string_view null_text)
    {
        if (!at.object)
            return std::nullopt;
        const Json align = at.member ? *at.member : Json();
        const std::vector<std::string> usual = two_words(std::string(null_text));
        return string_text(part(align, "vertical"), usual[0]) + " " +
               string_text(part(align, "horizontal"), usual[1]);
    }
};

// Every mode but the linear one is read as the decibel mode.
template <> struct Of<MAP_MODE> {
    static constexpr Part PARTS[] = {{"mode", TEXT, "linear|decibel"}, {"intensity", INTEGER}};

    static constexpr bool takes(std::string_view text) { return is_among(text, PARTS[0].words); }
    static Json written(const std::string& text, std::string_view)
    {
        const std::string decibel = "decibelm";
        if (!text.starts_with(decibel))
            return Json::object{{"mode", "linear"}};
        return Json::object{{"mode", "decibel"}, {"intensity", integer_in(text.substr(decibel.size()))}};
    }
    static MaybeText read(const Json& json, std::string_view null_text)
    {
        const Json* const mode = member_of(&json, "mode");
        if (!mode)
            return std::nullopt;
        if (string_text(*mode, null_text) == "linear")
            return "linear";
        return "decibelm" + integer_text(part(json, "intensity"));
    }
};

// A single level, without a comma, is no meter. A level that is no number is the one bad number of all
// documents that ends the run. Blanks are told apart without a locale, which would make the tools half as
// large again.
template <> struct Of<METER> : NoNullText {
    static Json written(const std::string& text, std::string_view)
    {
        const std::vector<std::string> pieces = split(text, ",");
        Json::array levels;
        if (pieces.size() <= 1)
            return levels;
        for (const std::string& piece : pieces) {
            const std::string level =
                boost::algorithm::trim_copy_if(piece, boost::algorithm::is_any_of(" \t\n\v\f\r"));
            levels.push_back(level == "-inf" ? Json("Number.NEGATIVE_INFINITY") : Json(std::stod(level)));
        }
        return levels;
    }
    static MaybeText read(const Json&, std::string_view) { return std::nullopt; }
    static constexpr char JSON[] =
        R"({"type": "array", "items": {
            "anyOf": [{"type": ["number", "null"]}, {"const": "Number.NEGATIVE_INFINITY"}]}})";
};

template <> struct Of<LAYER> {
    static constexpr Part PARTS[] = {{"kind", TEXT, "item|urgent|music|alerts|global", true},
        {"part", TEXT, "text|media"}, {"index", DEVICE}};

    static constexpr bool takes(std::string_view text) { return is_among(text, PARTS[0].words); }
    static Json written(const std::string& text, std::string_view)
    {
        if (is_among(text, "item|urgent|music"))
            return Json::object{{"kind", text}};
        if (is_among(text, PARTS[1].words))
            return Json::object{{"kind", "alerts"}, {"part", text}};
        return Json::object{{"kind", "global"}, {"index", text}};
    }
    static MaybeText read(const Json& json, std::string_view null_text)
    {
        const Json* const member = member_of(&json, "kind");
        if (!member)
            return std::nullopt;
        const std::string kind = string_text(*member, null_text);
        if (is_among(kind, "item|urgent|music"))
            return kind;
        if (kind == "alerts")
            return string_text(part(json, "part"));
        return kind == "global" ? integer_text(part(json, "index")) : MaybeText();
    }
};

// The two members of a switch of three positions: "-1" converts, "0" doesn't, and everything else, also
// nothing, converts even what has captions of its own. Forced but not on is off.
template <> struct Of<THREE_WAY_ON> : Of<BOOLEAN> {
    static Json written(const std::string& text, std::string_view) { return text != "0"; }
    static MaybeText read(const Place& at, std::string_view null_text)
    {
        const Json* const force = member_of(at.object, "force");
        if (!at.member || !force)
            return std::nullopt;
        if (boolean_text(*at.member, null_text) == "0")
            return "0";
        return boolean_text(*force) == "1" ? "1" : "-1";
    }
};

template <> struct Of<THREE_WAY_FORCED> : Of<BOOLEAN> {
    static Json written(const std::string& text, std::string_view) { return text != "0" && text != "-1"; }
    static MaybeText read(const Json&, std::string_view) { return std::nullopt; }
};

// Calls the function with what the coding says, which is one from FIRST to LAST.
template <std::uint8_t FIRST = 0, std::uint8_t LAST = static_cast<std::uint8_t>(LAST_CODING),
    typename Function>
constexpr auto with(Coding coding, Function function)
{
    constexpr std::uint8_t MIDDLE = (FIRST + LAST) / 2;
    if constexpr (FIRST == LAST)
        return function(Of<Coding{FIRST}>());
    else if (coding <= Coding{MIDDLE})
        return with<FIRST, MIDDLE>(coding, function);
    else
        return with<MIDDLE + 1, LAST>(coding, function);
}

inline std::optional<Json> written(Coding coding, std::string text, std::string_view null_text)
{
    return with(coding,
        [&](auto face) { return std::optional<Json>(decltype(face)::written(std::move(text), null_text)); });
}

inline MaybeText read(Coding coding, const Place& at, std::string_view null_text)
{
    return with(coding, [&](auto face) -> MaybeText {
        using Face = decltype(face);
        if constexpr (requires { Face::read(at, null_text); })
            return Face::read(at, null_text);
        else
            return at.member ? Face::read(*at.member, null_text) : std::nullopt;
    });
}

constexpr bool takes(Coding coding, std::string_view null_text)
{
    return with(coding, [null_text](auto face) { return decltype(face)::takes(null_text); });
}

// The members of a composite. All else has none, and a JSON Schema.
constexpr std::span<const Part> parts(Coding coding)
{
    return with(coding, [](auto face) -> std::span<const Part> {
        if constexpr (requires { decltype(face)::PARTS; })
            return decltype(face)::PARTS;
        else
            return {};
    });
}

inline Json json_schema(Coding coding)
{
    std::string error;
    return Json::parse(with(coding,
                           [](auto face) -> const char* {
                               if constexpr (requires { decltype(face)::JSON; })
                                   return decltype(face)::JSON;
                               else
                                   return "{}";
                           }),
        error);
}

}  // namespace codings
