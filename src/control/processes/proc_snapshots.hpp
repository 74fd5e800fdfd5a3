// What the kernel shows of Unix sockets and of the processes that hold them, as it was at one moment.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

#include "control/processes/driver_users.hpp"

// What the header of the table of Unix sockets names, and whether that will do.
struct SocketTableHeader {
    enum class Fault : std::uint8_t { NONE, NO_FILE, NO_INODE_OR_PATH, TOO_FAR_OUT };
    Fault fault = Fault::NO_FILE;
    std::vector<std::string> columns;
};

// The table of Unix sockets.
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

// A socket whose holder is looked for.
struct SoughtSocket {
    unsigned int inode;
    bool decides;            // the search goes on until this one's holder is found
    DriverUsers users{};     // whose processes count
    pid_t holder = 0;        // of several that count the one with the highest id; 0 when none does
    pid_t other_holder = 0;  // the last one that was found not to count
};

// Walks a directory of the form of /proc, from the highest process down, and fills in the holders. It ends
// as soon as all sockets that decide have one, so that others may then lack theirs. Processes that don't
// let themselves be seen hold nothing.
void find_holders(const char* proc, std::vector<SoughtSocket>& sought);

// Whether that process, of a directory of that form, holds the socket.
bool holds_socket(const char* proc, pid_t pid, unsigned int inode);
