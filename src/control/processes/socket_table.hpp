// The kernel's table of Unix sockets, as it was at one moment.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

// What the header of the table of Unix sockets names, and whether that will do.
struct SocketTableHeader {
    enum class Fault : std::uint8_t { NONE, NO_FILE, NO_INODE_OR_PATH, TOO_FAR_OUT };
    Fault fault = Fault::NO_FILE;
    std::vector<std::string> columns;
};

class ProcNetUnixSnapshot {
public:
    // The row's path is empty when it has none, and cut at its first blank.
    using Row = std::function<void(std::string_view path, unsigned int inode)>;

    // Reads the table from a file of the form of /proc/net/unix, whose header line names the columns. A
    // file that can't be opened leaves the table empty, and so does a header that can't be understood.
    SocketTableHeader take(const char* file);

    // Calls back with each row that has an inode, in the table's order.
    void for_each(const Row& row) const;

private:
    static constexpr std::size_t NO_COLUMN = static_cast<std::size_t>(-1);

    SocketTableHeader find_columns(std::string_view line);

    std::string m_text;
    std::size_t m_rows = 0;  // where they begin in the text
    std::size_t m_inode_column = NO_COLUMN;
    std::size_t m_path_column = NO_COLUMN;
};
