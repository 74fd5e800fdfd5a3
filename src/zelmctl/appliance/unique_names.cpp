#include "zelmctl/appliance/unique_names.hpp"

#include <algorithm>
#include <deque>
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
            case ']': leave(); break;
            case ',': next(); break;
            default: ++m_at;
            }
    }

private:
    // An object or array that has not ended yet.
    struct Open {
        bool is_object;
        bool wants_name;
        std::string_view name{};  // of the member that stands there
        std::size_t place = 0;    // of the element
        std::vector<std::string_view> names{};
    };

    void enter(bool is_object)
    {
        m_open.push_back({is_object, is_object});
        ++m_at;
    }

    void leave()
    {
        std::vector<std::string_view> names = std::move(m_open.back().names);
        std::sort(names.begin(), names.end());
        for (auto at = names.begin(); (at = std::adjacent_find(at, names.end())) != names.end(); ++at) {
            m_open.back().name = *at;
            m_findings.add_of_member(path(), "stands there twice");
        }
        m_open.pop_back();
        ++m_at;
    }

    void next()
    {
        Open& open = m_open.back();
        open.wants_name = open.is_object;
        ++open.place;
        ++m_at;
    }

    bool is_escaped(std::size_t place) const
    {
        const std::size_t other = m_text.find_last_not_of('\\', place - 1);
        return (place - other) % 2 == 0;
    }

    void take_text()
    {
        const std::size_t begin = m_at++;
        while (is_escaped(m_at = m_text.find('"', m_at)))
            ++m_at;
        ++m_at;
        if (!m_open.empty() && m_open.back().wants_name)
            take_name(m_text.substr(begin, m_at - begin));
    }

    void take_name(std::string_view quoted)
    {
        Open& open = m_open.back();
        open.wants_name = false;
        open.name = quoted.substr(1, quoted.size() - 2);
        if (open.name.find('\\') != quoted.npos) {
            std::string fault;
            const json11::Json text = json11::Json::parse("[" + std::string(quoted) + "]", fault)[0];
            open.name = m_kept.emplace_back(text.string_value());
        }
        open.names.push_back(open.name);
    }

    std::string path() const
    {
        std::string path;
        for (const Open& open : m_open)
            path = joined(path, open.is_object ? std::string(open.name) : std::to_string(open.place));
        return path;
    }

    std::string_view m_text;
    Findings& m_findings;
    std::size_t m_at = 0;
    std::vector<Open> m_open;
    std::deque<std::string> m_kept;  // names that stand there in another spelling
};

}  // namespace

void find_repeated_names(std::string_view text, Findings& findings)
{
    NameScan(text, findings).run();
}
