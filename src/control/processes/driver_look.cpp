#include "control/processes/driver_look.hpp"

#include <algorithm>
#include <fcntl.h>
#include <map>
#include <optional>
#include <set>
#include <sys/stat.h>
#include <utility>

#include "control/items/metadir.hpp"
#include "control/processes/socket_holders.hpp"
#include "platform/io.hpp"

namespace {

const std::string PROC_PATH = "/proc";

// An absolute link is followed this once: `path` and `state` become those of its target, and `entry` those of
// the link that was read. False when it leads nowhere.
bool follow(std::string& path, struct stat& entry, struct stat& state)
{
    const Descriptor link(::open(path.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
    if (!link || ::fstat(link.get(), &entry) != 0)
        return false;
    path = read_link(link.get());
    return path.starts_with('/') && ::lstat(path.c_str(), &state) == 0;
}

const BoundSocket* find(const std::vector<BoundSocket>& bound, unsigned int inode)
{
    const auto found = std::lower_bound(bound.begin(), bound.end(), inode,
        [](const BoundSocket& each, unsigned int wanted) { return each.inode < wanted; });
    return found == bound.end() || found->inode != inode ? nullptr : &*found;
}

}  // namespace

HeldProcess hold(const RunningDriver& driver)
{
    if (driver.pid == 0)
        return {};
    // It is held first and looked at then: its id may have been taken again since it was found.
    HeldProcess process(driver.pid);
    const bool still_serves = holds_socket(PROC_PATH.c_str(), driver.pid, driver.socket) &&
                              driver.users.include(PROC_PATH.c_str(), driver.pid);
    return still_serves ? std::move(process) : HeldProcess();
}

// The kernel hands the table out in pieces and skips rows while sockets close between two of them. So a
// socket that is there without a driver is looked at once more.
DriverLook::DriverLook(const std::vector<std::string>& metadirs, const char* table)
{
    ProcNetUnixSnapshot sockets;
    m_header = sockets.take(table);
    m_items.reserve(metadirs.size());
    for (const std::string& metadir : metadirs)
        m_items.push_back(locate(metadir));
    find_drivers(sockets);
    if (m_header.fault == SocketTableHeader::Fault::NONE && locate_again()) {
        m_header = sockets.take(table);
        find_drivers(sockets);
    }
}

std::vector<RunningDriver> DriverLook::drivers() const
{
    std::vector<RunningDriver> drivers;
    drivers.reserve(m_items.size());
    for (const Item& item : m_items)
        drivers.push_back(item.driver);
    return drivers;
}

RunningDriver DriverLook::driver_of(const std::string& metadir) const
{
    const auto item = std::find_if(
        m_items.begin(), m_items.end(), [&](const Item& each) { return each.metadir == metadir; });
    const bool is_there = item != m_items.end() && locate(metadir).socket == item->socket;
    return is_there ? item->driver : RunningDriver();
}

DriverLook::Item DriverLook::locate(const std::string& metadir)
{
    Item item{metadir};
    std::string path = active_socket_path(metadir);
    struct stat entry {};
    struct stat directory {};
    if (metadir.empty() || ::lstat(path.c_str(), &entry) != 0)
        return item;
    struct stat state = entry;
    if ((S_ISLNK(entry.st_mode) && !follow(path, entry, state)) || !S_ISSOCK(state.st_mode) ||
        ::lstat(metadir.c_str(), &directory) != 0 || !S_ISDIR(directory.st_mode))
        return item;
    item.socket = std::move(path);
    item.file = told_numbers(state);
    item.driver.users = DriverUsers(directory, entry);
    return item;
}

// Locates the items whose driver wasn't found. Whether any of them has a socket.
bool DriverLook::locate_again()
{
    bool has_any = false;
    for (Item& item : m_items)
        if (item.driver.pid == 0 && !item.socket.empty()) {
            item = locate(item.metadir);
            has_any |= !item.socket.empty();
        }
    return has_any;
}

// Whether the kernel says that the socket is bound at the item's entry, and not only a row that anybody may
// have forged.
bool DriverLook::confirm(Item& item, const BoundSocket* socket)
{
    if (!socket)
        return false;
    if (socket->file != item.file && !std::exchange(item.has_kernel_numbers, true))
        item.file = kernel_numbers(item.socket, item.file);
    return socket->file == item.file;
}

// The rows of the items whose driver isn't known yet, in the table's order.
std::vector<DriverLook::Row> DriverLook::rows_of_items(const ProcNetUnixSnapshot& table)
{
    std::multimap<std::string_view, Item*> sought;
    for (Item& item : m_items)
        if (item.driver.pid == 0 && !item.socket.empty())
            sought.emplace(item.socket, &item);
    std::vector<Row> rows;
    table.for_each([&](std::string_view path, unsigned int inode) {
        const auto [begin, end] =
            inode != 0 ? sought.equal_range(path) : std::pair(sought.end(), sought.end());
        for (auto found = begin; found != end; ++found)
            rows.push_back({found->second, inode});
    });
    return rows;
}

// The kernel gives the listener's path to its connections too, and may write their rows first: those that
// the driver hasn't accepted, which have no inode yet, and those that end before their holder is looked
// for. So a row that nobody holds says nothing as long as there is another, and those of connections are the
// last that a driver is known by.
void DriverLook::find_drivers(const ProcNetUnixSnapshot& table)
{
    std::vector<Row> rows = rows_of_items(table);
    const auto bound = rows.empty() ? std::nullopt : bound_sockets();
    if (bound) {
        std::erase_if(rows, [&](const Row& row) { return !confirm(*row.item, find(*bound, row.inode)); });
        std::stable_partition(rows.begin(), rows.end(),
            [&](const Row& row) { return !find(*bound, row.inode)->is_connection; });
    }
    std::vector<SoughtSocket> sought;
    sought.reserve(rows.size());
    std::set<const Item*> with_rows;
    for (const Row& row : rows)
        sought.push_back({row.inode, with_rows.insert(row.item).second, row.item->driver.users});
    find_holders(PROC_PATH.c_str(), sought);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        RunningDriver& driver = rows[i].item->driver;
        if (driver.pid == 0 && sought[i].holder != 0) {
            driver.pid = sought[i].holder;
            driver.socket = rows[i].inode;
        }
        driver.is_hidden = driver.pid == 0 && (driver.is_hidden || sought[i].other_holder == 0);
    }
}
