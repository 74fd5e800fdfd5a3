#include "control/commands/drivers_of_run.hpp"

#include <memory>
#include <optional>

#include "control/commands/item_checks.hpp"
#include "control/commands/items_of_run.hpp"
#include "control/items/metadir.hpp"
#include "control/run_state.hpp"

namespace {

std::unique_ptr<DriverLook> first_look;

void complain_of(const SocketTableHeader& header)
{
    if (header.fault == SocketTableHeader::Fault::TOO_FAR_OUT)
        std::fprintf(stderr_write, "procnetunixsnapshot: columns out of range.\n");
    if (header.fault != SocketTableHeader::Fault::NO_INODE_OR_PATH)
        return;
    std::fprintf(stderr_write,
        "procnetunixsnapshot: one or more required columns are missing. I need inode and path.\n");
    std::fprintf(stderr_write, "Headers read from /proc/net/unix were:\n");
    for (std::size_t i = 0; i < header.columns.size(); ++i)
        std::fprintf(stderr_write, "   entry[%zu] = '%s'\n", i, header.columns[i].c_str());
}

std::unique_ptr<DriverLook> look_or_complain(const std::vector<std::string>& items)
{
    std::vector<std::string> metadirs(items.size());
    for (std::size_t i = 0; i < items.size(); ++i)
        find_metadir(settings_path(items[i]), metadirs[i]);
    auto look = std::make_unique<DriverLook>(metadirs);
    complain_of(look->header());
    return look;
}

std::optional<std::string> metadir_or_complain(const std::string& item)
{
    const std::string path = settings_path(item);
    struct stat state {};
    std::string metadir;
    if (!stat_settings_or_complain(path, state) || !find_metadir_or_complain(path, metadir))
        return {};
    return metadir;
}

}  // namespace

void look_at_drivers()
{
    first_look = look_or_complain(itemlist);
}

RunningDriver running_driver(const std::string& item)
{
    if (!first_look) {
        std::vector<std::string> items = itemlist;
        if (items.empty())
            items.push_back(item);
        first_look = look_or_complain(items);
    }
    const auto metadir = metadir_or_complain(item);
    return metadir ? first_look->driver_of(*metadir) : RunningDriver();
}

int is_item_running(const std::string& item, pid_t* pid)
{
    const RunningDriver driver = running_driver(item);
    if (pid)
        *pid = driver.pid;
    return driver.pid != 0 ? 1 : 0;
}

std::vector<pid_t> running_processes(const std::vector<std::string>& items)
{
    const std::vector<RunningDriver> drivers = look_or_complain(items)->drivers();
    std::vector<pid_t> processes;
    processes.reserve(items.size());
    for (std::size_t i = 0; i < items.size(); ++i)
        processes.push_back(metadir_or_complain(items[i]) ? drivers[i].pid : 0);
    return processes;
}
