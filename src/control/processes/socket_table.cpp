#include "control/processes/socket_table.hpp"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <strings.h>

#include "platform/io.hpp"

namespace {

constexpr std::size_t FIELD_LIMIT = 63;  // a row's fields behind this one are not looked at

// The next word of a line from `at` on, which moves behind it; empty at the line's end.
std::string_view next_word(std::string_view line, std::size_t& at)
{
    const std::size_t begin = std::min(line.find_first_not_of(' ', at), line.size());
    at = std::min(line.find(' ', begin), line.size());
    return line.substr(begin, at - begin);
}

std::string_view field_of(std::string_view line, std::size_t column)
{
    std::size_t at = 0;
    for (; column > 0; --column)
        next_word(line, at);
    return next_word(line, at);
}

}  // namespace

SocketTableHeader ProcNetUnixSnapshot::take(const char* file)
{
    m_text.clear();
    m_path_column = NO_COLUMN;
    const Descriptor table(::open(file, O_RDONLY | O_CLOEXEC));
    if (!table)
        return {};
    read_to_end(table.get(), m_text.max_size(), m_text);
    std::string_view rows = m_text;
    SocketTableHeader header = find_columns(rows.empty() ? rows : cut_line(rows));
    m_rows = m_text.size() - rows.size();
    return header;
}

// The last column of each name, whatever its case.
SocketTableHeader ProcNetUnixSnapshot::find_columns(std::string_view line)
{
    using Fault = SocketTableHeader::Fault;
    std::vector<std::string> names;
    std::size_t inode_column = NO_COLUMN;
    std::size_t path_column = NO_COLUMN;
    std::size_t at = 0;
    for (std::string_view name = next_word(line, at); !name.empty(); name = next_word(line, at)) {
        names.emplace_back(name);
        if (::strcasecmp(names.back().c_str(), "Inode") == 0)
            inode_column = names.size() - 1;
        if (::strcasecmp(names.back().c_str(), "Path") == 0)
            path_column = names.size() - 1;
    }
    if (inode_column == NO_COLUMN || path_column == NO_COLUMN)
        return {Fault::NO_INODE_OR_PATH, std::move(names)};
    if (inode_column > FIELD_LIMIT || path_column > FIELD_LIMIT)
        return {Fault::TOO_FAR_OUT, std::move(names)};
    m_inode_column = inode_column;
    m_path_column = path_column;
    return {Fault::NONE, std::move(names)};
}

void ProcNetUnixSnapshot::for_each(const Row& row) const
{
    if (m_path_column == NO_COLUMN)
        return;
    std::string_view rows = std::string_view(m_text).substr(m_rows);
    while (!rows.empty()) {
        const std::string_view line = cut_line(rows);
        const std::string_view inode = m_inode_column < FIELD_LIMIT ? field_of(line, m_inode_column) : "";
        const std::string_view path = m_path_column < FIELD_LIMIT ? field_of(line, m_path_column) : "";
        if (!inode.empty())
            row(path, static_cast<unsigned int>(std::strtoul(std::string(inode).c_str(), nullptr, 0)));
    }
}
