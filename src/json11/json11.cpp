#include "json11.hpp"

#include <cmath>
#include <cstdio>
#include <string_view>
#include <utility>

namespace json11 {

namespace {

// Appends the character that the text begins with as JSON holds it, and returns how many bytes it has there.
// What ends a line of JavaScript, U+2028 and U+2029, is escaped too.
std::size_t dump_character(std::string_view text, std::string& out)
{
    constexpr std::string_view named = "\"\\\b\f\n\r\t";
    const auto c = static_cast<unsigned char>(text.front());
    const bool is_separator = text.starts_with("\xe2\x80\xa8") || text.starts_with("\xe2\x80\xa9");
    char code[8];
    if (is_separator)
        out += text[2] == '\xa8' ? "\\u2028" : "\\u2029";
    else if (c >= 0x20 && c != '"' && c != '\\')
        out += text.front();
    else if (named.find(text.front()) != named.npos)
        (out += '\\') += "\"\\bfnrt"[named.find(text.front())];
    else
        out.append(code, static_cast<std::size_t>(std::snprintf(code, sizeof code, "\\u%04x", c)));
    return is_separator ? 3 : 1;
}

// Appends what a value holds.
struct Dump {
    std::string& out;

    void operator()(bool value) const { out += value ? "true" : "false"; }

    void operator()(double number) const
    {
        char text[32];
        std::snprintf(text, sizeof text, "%.17g", number);
        out += std::isfinite(number) ? text : "null";
    }

    void operator()(std::string_view text) const
    {
        out += '"';
        while (!text.empty())
            text.remove_prefix(dump_character(text, out));
        out += '"';
    }

    void operator()(const Json::array& elements) const
    {
        const char* separator = "";
        out += '[';
        for (const Json& element : elements) {
            out += std::exchange(separator, ", ");
            element.dump(out);
        }
        out += ']';
    }

    void operator()(const Json::object& members) const
    {
        const char* separator = "";
        out += '{';
        for (const auto& [name, member] : members) {
            out += std::exchange(separator, ", ");
            (*this)(std::string_view(name));
            out += ": ";
            member.dump(out);
        }
        out += '}';
    }
};

const Json null;

}  // namespace

Json::Json(Value value) : m_value(std::make_shared<const Value>(std::move(value))) {}

const Json& Json::operator[](std::size_t place) const
{
    return place < array_items().size() ? array_items()[place] : null;
}

const Json& Json::operator[](const std::string& name) const
{
    const auto member = object_items().find(name);
    return member == object_items().end() ? null : member->second;
}

bool Json::operator==(const Json& other) const
{
    return m_value == other.m_value || (m_value && other.m_value && *m_value == *other.m_value);
}

std::string Json::dump() const
{
    std::string out;
    dump(out);
    return out;
}

void Json::dump(std::string& out) const
{
    if (m_value)
        std::visit(Dump{out}, *m_value);
    else
        out += "null";
}

}  // namespace json11
