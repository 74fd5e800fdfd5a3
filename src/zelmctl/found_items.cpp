#include "zelmctl/found_items.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "control/infolist.hpp"
#include "control/items/item_directory.hpp"
#include "control/items/metadir.hpp"
#include "zelmctl/options.hpp"

FoundItems find_items(const Selection& selection)
{
    FoundItems found;
    for (const Role& role : ROLES) {
        if (!selection.has_any(role))
            continue;
        const Directory directory(::opendir(role.directory));
        if (!directory && errno == ENOENT)
            continue;
        auto names = directory ? read_item_names(directory.get(), role) : std::nullopt;
        if (!names) {
            found.status = complain(std::string(role.directory) + ": " + std::strerror(errno));
            continue;
        }
        for (std::string& name : *names)
            if (selection.includes({&role, name}))
                found.items.push_back({&role, std::move(name)});
    }
    return found;
}

std::vector<ItemId> missing_items(const Selection& selection, const std::vector<ItemId>& items)
{
    std::vector<ItemId> missing;
    for (const Role& role : ROLES)
        for (const std::string& name : selection.names(role))
            if (const ItemId item{&role, name}; !std::binary_search(items.begin(), items.end(), item))
                missing.push_back(item);
    return missing;
}

Status complain_of_missing(const Selection& selection, const std::vector<ItemId>& items)
{
    Status status = IS_SO;
    for (const ItemId& item : missing_items(selection, items)) {
        complain_of(item, "no such item");
        status = IS_NOT_SO;
    }
    return status;
}

bool has_autostart(const ItemId& item)
{
    const Descriptor file = open_settings(AT_FDCWD, settings_path(item.role->directory, item.name));
    InfoList list;
    if (file)
        load_infolist_from_file(list, *item.role, file.get());
    return infolist_get_autostart(list) > 0;
}

std::string metadir_of(const ItemId& item)
{
    std::string metadir;
    find_metadir(settings_path(item.role->directory, item.name), metadir);
    return metadir;
}

FoundDrivers find_drivers(const std::vector<ItemId>& items)
{
    std::vector<std::string> metadirs;
    metadirs.reserve(items.size());
    for (const ItemId& item : items)
        metadirs.push_back(metadir_of(item));
    const DriverLook look(metadirs);
    const bool is_told = look.header().fault == SocketTableHeader::Fault::NONE;
    return {look.drivers(), is_told ? IS_SO : complain("/proc/net/unix doesn't tell who serves the items")};
}
