#include "zelmctl/check/findings.hpp"

#include <algorithm>

#include "zelmctl/printable.hpp"

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

std::string as_line(const std::string& file, const Finding& finding)
{
    std::string where = printable(file);
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

std::string in_quotes(std::string_view text)
{
    const std::string beginning = beginning_of(text);
    return "\"" + beginning + "\"" + (beginning.size() < text.size() ? "..." : "");
}
