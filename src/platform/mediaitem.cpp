#include "platform/mediaitem.hpp"

#include <fcntl.h>
#include <functional>
#include <optional>
#include <string_view>

#include "platform/io.hpp"

namespace {

// A member that stands several times in its section has a value of several lines.
void append_line(std::string& text, std::string_view line, bool& has_line)
{
    if (has_line)
        text += '\n';
    text += line;
    has_line = true;
}

bool set_flag(zelm_config_entry& entry, std::string_view flag)
{
    if (flag == "s")
        entry.s_flag = true;
    else if (flag == "nogui")
        entry.nogui_flag = true;
    else if (flag == "detail")
        entry.quick_summary = false;
    else
        return false;
    return true;
}

bool set_flags(zelm_config_entry& entry, std::string_view flags)
{
    while (!flags.empty()) {
        const std::size_t blank = flags.find(' ');
        if (!set_flag(entry, flags.substr(0, blank)))
            return false;
        flags.remove_prefix(blank == std::string_view::npos ? flags.size() : blank + 1);
    }
    return true;
}

using MaybeFault = std::optional<ManifestFault>;

// Reads one manifest into a map: sections of a key, and in each the members of its entry.
class ManifestReader {
public:
    ManifestReader(std::map<std::string, zelm_config_entry, std::less<>>& entries, bool with_texts)
        : m_entries(entries), m_with_texts(with_texts)
    {
    }

    MaybeFault line(std::string_view line)
    {
        if (line.empty() || line.front() == '#')
            return std::nullopt;
        if (line.front() == '[')
            return section(line);
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos)
            return ManifestFault::NO_MEMBER;
        return m_entry ? member(line.substr(0, equals), line.substr(equals + 1)) : ManifestFault::NO_SECTION;
    }

private:
    MaybeFault section(std::string_view line)
    {
        if (line.size() < 2 || line.back() != ']')
            return ManifestFault::OPEN_SECTION;
        const auto [at, is_new] = m_entries.try_emplace(std::string(line.substr(1, line.size() - 2)));
        m_entry = &at->second;
        m_has_default = m_has_description = m_has_ui = false;
        return is_new ? MaybeFault() : ManifestFault::SECOND_SECTION;
    }

    MaybeFault member(std::string_view name, std::string_view text)
    {
        if (name == "default") {
            append_line(m_entry->default_value, text, m_has_default);
        } else if (name == "letter") {
            if (text.size() != 1)
                return ManifestFault::LONG_LETTER;
            m_entry->letter = text.front();
        } else if (name == "flags") {
            return set_flags(*m_entry, text) ? MaybeFault() : ManifestFault::UNKNOWN_FLAG;
        } else if (name == "description") {
            if (m_with_texts)
                append_line(m_entry->description, text, m_has_description);
        } else if (name == "ui") {
            if (m_with_texts)
                append_line(m_entry->ui, text, m_has_ui);
        } else {
            return ManifestFault::UNKNOWN_MEMBER;
        }
        return std::nullopt;
    }

    std::map<std::string, zelm_config_entry, std::less<>>& m_entries;
    bool m_with_texts;
    zelm_config_entry* m_entry = nullptr;
    bool m_has_default = false;
    bool m_has_description = false;
    bool m_has_ui = false;
};

}  // namespace

int zelm_config_list::load_arglist(const char* path)
{
    const Descriptor file(::open(path, O_RDONLY | O_CLOEXEC));
    return load_arglist(file.get());
}

int zelm_config_list::load_arglist(int file, BrokenLine* broken)
{
    m_entries.clear();
    NumberedLines lines(file);
    ManifestReader manifest(m_entries, with_texts != 0);
    MaybeFault fault;
    std::string_view line;
    while (!fault && lines.next(line))
        fault = manifest.line(line);
    if (fault && broken)
        *broken = {*fault, lines.number(), lines.is_rest(), std::string(line)};
    const bool whole = !fault && !lines.failed();
    if (!whole)
        m_entries.clear();
    return whole ? 0 : -1;
}
