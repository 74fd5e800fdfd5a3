#include "zelmctl/asked_items.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "control/infolist.hpp"
#include "control/items/item_directory.hpp"
#include "control/items/metadir.hpp"
#include "control/reports/report_queries.hpp"
#include "zelmctl/found_items.hpp"
#include "zelmctl/outcome.hpp"

namespace {

std::vector<AskedItem> items_with(std::vector<ItemId> ids, const std::vector<RunningDriver>& processes)
{
    std::vector<AskedItem> items;
    items.reserve(ids.size());
    for (std::size_t i = 0; i < ids.size(); ++i)
        items.push_back({std::move(ids[i]), processes[i]});
    return items;
}

void read_settings(AskedItem& item)
{
    const Role& role = *item.id.role;
    const Descriptor file = open_settings(AT_FDCWD, settings_path(role.directory, item.id.name));
    item.has_settings = static_cast<bool>(file);
    if (file)
        load_infolist_from_file(item.settings, role, file.get());
    else
        item.add_error(std::strerror(errno));
    infolist_get(item.driver, item.settings, "driver");
    if (role.kind == ItemKind::CHANNEL)
        item.driver = "channel";
}

}  // namespace

Status ask_items(const Options& options, const std::function<void(AskedItem&)>& tell)
{
    const std::uint64_t deadline_us = options.deadline_us();
    FoundItems found = find_items(options.items);
    const FoundDrivers drivers = find_drivers(found.items);
    Status status = std::max({found.status, drivers.status, complain_of_missing(options.items, found.items)});
    std::vector<AskedItem> items = items_with(std::move(found.items), drivers.drivers);
    ReportQueries queries([deadline_us] { return deadline_us; });
    const auto begin = [&](AskedItem& item) {
        read_settings(item);
        if (item.process.is_hidden)
            item.add_error(not_to_be_seen().text);
        if (!item.error.empty())
            status = std::max(status, complain_of(item.id, item.error));
        if (item.runs())
            item.report = queries.ask(active_socket_path(metadir_of(item.id)));
    };
    const auto end = [&](AskedItem& item) {
        tell(item);
        item.settings = {};
    };
    ask_side_by_side(items, queries, begin, end);
    return status;
}
