#include "zelmctl/appliance/unique_names.hpp"

#include <set>
#include <vector>

#include "zelmctl/check/document_shape.hpp"

namespace {

class NameScan {
public:
    NameScan(std::string_view text, Findings& findings) : m_text(text), m_findings(findings) {}

    void run()
    {
        while (m_at < m_text.size() && !m_findings.has_more())
            switch (const char c = m_text[m_at]; c) {
            case '"': take_text(); break;
            case '{':
            case '[': enter(c == '{'); break;
            case '}':
            case ']': m_open.pop_back(), ++m_at; break;
            case ',': next(); break;
            default: ++m_at;
            }
    }

private:
    // An object or array that has not ended yet.
    struct Open {
        bool is_object;
        bool wants_name;
        std::string member;  // the name or place of what stands there
        std::size_t place = 0;
        std::set<std::string, std::less<>> names{};
    };

    void enter(bool is_object)
    {
        m_open.push_back({is_object, is_object, is_object ? "" : "0"});
        ++m_at;
    }

    void next()
    {
        Open& open = m_open.back();
        open.wants_name = open.is_object;
        if (!open.is_object)
            open.member = std::to_string(++open.place);
        ++m_at;
    }

    void take_text()
    {
        const std::size_t begin = m_at++;
        while (m_text[m_at] != '"')
            m_at += m_text[m_at] == '\\' ? 2 : 1;
        ++m_at;
        if (!m_open.empty() && m_open.back().wants_name)
            take_name(m_text.substr(begin, m_at - begin));
    }

    void take_name(std::string_view quoted)
    {
        Open& open = m_open.back();
        open.wants_name = false;
        open.member = quoted.substr(1, quoted.size() - 2);
        std::string fault;
        if (quoted.find('\\') != quoted.npos)
            open.member = json11::Json::parse("[" + std::string(quoted) + "]", fault)[0].string_value();
        if (!open.names.insert(open.member).second)
            m_findings.add_of_member(path(), "stands here twice");
    }

    std::string path() const
    {
        std::string path;
        for (const Open& open : m_open)
            path = joined(path, open.member);
        return path;
    }

    std::string_view m_text;
    Findings& m_findings;
    std::size_t m_at = 0;
    std::vector<Open> m_open;
};

}  // namespace

void find_repeated_names(std::string_view text, Findings& findings)
{
    NameScan(text, findings).run();
}
