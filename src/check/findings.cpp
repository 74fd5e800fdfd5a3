#include "check/findings.hpp"

#include <algorithm>
#include <cstdio>

using json11::Json;

void Findings::add(Finding finding)
{
    if (m_findings.size() < LIMIT)
        m_findings.push_back(std::move(finding));
    else
        m_has_more = true;
}

void Findings::sort_by_line()
{
    std::stable_sort(m_findings.begin(), m_findings.end(),
        [](const Finding& one, const Finding& other) { return one.line < other.line; });
}

std::vector<Finding> Findings::all() const
{
    std::vector<Finding> all = m_findings;
    if (m_has_more)
        all.push_back({"there is more than the " + std::to_string(LIMIT) + " findings above"});
    return all;
}

namespace {

// How many bytes the character takes that the text begins with, 0 if it is none of UTF-8.
std::size_t character_size(std::string_view text)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const std::size_t size = byte(0) < 0x80   ? 1
                             : byte(0) < 0xc2 ? 0
                             : byte(0) < 0xe0 ? 2
                             : byte(0) < 0xf0 ? 3
                                              : 4;
    if (byte(0) > 0xf4 || size > text.size())
        return 0;
    for (std::size_t i = 1; i < size; ++i)
        if (byte(i) >> 6 != 2)
            return 0;
    return size;
}

bool is_printable(unsigned char byte)
{
    return byte >= ' ' && byte != 0x7f;
}

// Nothing that moves a terminal's cursor, and nothing that is no UTF-8.
std::string printable(std::string_view text)
{
    std::string safe;
    while (!text.empty()) {
        const std::size_t size = character_size(text);
        if (size > 0 && is_printable(static_cast<unsigned char>(text.front()))) {
            safe += text.substr(0, size);
            text.remove_prefix(size);
            continue;
        }
        char escaped[8];
        std::snprintf(escaped, sizeof escaped, "\\x%02x", static_cast<unsigned char>(text.front()));
        safe += text.front() == '\n' ? "\\n" : escaped;
        text.remove_prefix(1);
    }
    return safe;
}

}  // namespace

std::string as_line(const std::string& file, const Finding& finding)
{
    std::string where = file;
    if (finding.line > 0)
        where += ":" + std::to_string(finding.line);
    if (finding.column > 0)
        where += ":" + std::to_string(finding.column);
    if (!finding.member.empty())
        where += ": " + printable(finding.member);
    return where + ": " + printable(finding.text) + "\n";
}

Json as_json(const std::string& file, const Finding& finding)
{
    Json::object json{{"file", printable(file)}, {"message", printable(finding.text)}};
    if (finding.line > 0)
        json["line"] = static_cast<int>(finding.line);
    if (finding.column > 0)
        json["column"] = static_cast<int>(finding.column);
    if (!finding.member.empty())
        json["member"] = printable(finding.member);
    return json;
}

std::string beginning_of(std::string_view text)
{
    constexpr std::size_t ROOM = 60;
    std::size_t end = std::min(ROOM, text.size());
    while (end > 0 && end < text.size() && static_cast<unsigned char>(text[end]) >> 6 == 2)
        --end;
    return std::string(text.substr(0, end));
}

std::string quoted(std::string_view text)
{
    const std::string beginning = beginning_of(text);
    return "\"" + beginning + "\"" + (beginning.size() < text.size() ? "..." : "");
}
