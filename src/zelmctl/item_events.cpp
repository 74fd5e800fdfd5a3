#include "zelmctl/item_events.hpp"

#include <cerrno>
#include <climits>
#include <filesystem>
#include <sys/inotify.h>
#include <unistd.h>

#include "control/items/item_directory.hpp"
#include "platform/metadata.hpp"
#include "zelmctl/found_items.hpp"

namespace {

using Event = ItemEvent::What;

constexpr std::uint32_t ARRIVALS = IN_CREATE | IN_MOVED_TO;
constexpr std::uint32_t DEPARTURES = IN_DELETE | IN_MOVED_FROM;
constexpr std::uint32_t END_OF_DIRECTORY = IN_DELETE_SELF | IN_MOVE_SELF;

// Whether the kernel refused a watch for another reason than that nothing to watch is there.
bool has_no_room(int error)
{
    return error != ENOENT && error != ENOTDIR && error != ELOOP;
}

}  // namespace

ItemEvents::ItemEvents() : m_inotify(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {}

int ItemEvents::add(const std::string& path, std::uint32_t events, Watched watched)
{
    const int watch = ::inotify_add_watch(m_inotify.get(), path.c_str(), events | IN_ONLYDIR);
    if (watch >= 0)
        m_watched.insert_or_assign(watch, std::move(watched));
    return watch;
}

// The directory may come between a look at it and the watch of the one above it.
bool ItemEvents::watch(const Role& role)
{
    remove(role);
    const std::filesystem::path directory = role.directory;
    for (std::filesystem::path path = directory;;) {
        const bool is_above = path != directory;
        const int watch =
            add(path, ARRIVALS | END_OF_DIRECTORY | (is_above ? 0 : DEPARTURES | IN_CLOSE_WRITE),
                {is_above ? nullptr : &role});
        if (watch >= 0 && !is_above)
            return true;
        if (watch < 0 && (has_no_room(errno) || path == path.parent_path()))
            return false;
        if (watch < 0) {
            path = path.parent_path();
            continue;
        }
        const std::filesystem::path below =
            path / *std::next(directory.begin(), std::distance(path.begin(), path.end()));
        if (::access(below.c_str(), F_OK) != 0)
            return true;
        path = directory;
    }
}

bool ItemEvents::watch(const ItemId& item)
{
    const std::string metadir = metadir_of(item);
    if (metadir.empty())
        return true;
    const int watch = add(metadir, ARRIVALS | DEPARTURES | IN_DONT_FOLLOW, {item.role, item.name});
    int& known = m_metadirs.try_emplace(item, watch).first->second;
    const int old = std::exchange(known, watch);
    if (old != watch && m_watched.erase(old) != 0)
        ::inotify_rm_watch(m_inotify.get(), old);  // of one that was moved away
    m_items.insert_or_assign({item.role, std::filesystem::path(metadir).filename()}, item.name);
    return watch >= 0 || !has_no_room(errno);
}

void ItemEvents::forget(const ItemId& item)
{
    const auto found = m_metadirs.find(item);
    if (found == m_metadirs.end())
        return;
    if (m_watched.erase(found->second) != 0)
        ::inotify_rm_watch(m_inotify.get(), found->second);
    m_metadirs.erase(found);
    m_items.erase({item.role, std::filesystem::path(metadir_of(item)).filename()});
}

void ItemEvents::remove(const Role& role)
{
    std::erase_if(m_watched, [&](const auto& watch) {
        const bool is_of_role = watch.second.role == &role && watch.second.item.empty();
        if (is_of_role)
            ::inotify_rm_watch(m_inotify.get(), watch.first);
        return is_of_role;
    });
}

std::vector<ItemEvent> ItemEvents::read()
{
    std::vector<ItemEvent> told;
    alignas(inotify_event) char buffer[16384];
    for (;;) {
        const ssize_t got = TEMP_FAILURE_RETRY(::read(m_inotify.get(), buffer, sizeof buffer));
        if (got <= 0)
            return told;
        for (const char* at = buffer; at < buffer + got;) {
            const auto* event = reinterpret_cast<const inotify_event*>(at);
            translate(event->wd, event->mask, event->len > 0 ? event->name : "", told);
            at += sizeof *event + event->len;
        }
    }
}

void ItemEvents::translate(
    int watch, std::uint32_t events, const std::string& name, std::vector<ItemEvent>& told)
{
    if ((events & IN_Q_OVERFLOW) != 0)
        return told.push_back({Event::OVERFLOW, {}});
    const auto found = m_watched.find(watch);
    if (found == m_watched.end())
        return;
    const Watched watched = found->second;
    if ((events & IN_IGNORED) != 0)
        m_watched.erase(found);
    if (!watched.role) {
        for (const Role& role : ROLES)
            told.push_back({Event::DIRECTORY, {&role, {}}});
    } else if (watched.item.empty()) {
        translate_of_items(*watched.role, events, name, told);
    } else if (name == ACTIVE_SOCKET_ENTRY) {
        const bool is_made = (events & ARRIVALS) != 0;
        told.push_back({is_made ? Event::SOCKET_MADE : Event::SOCKET_GONE, {watched.role, watched.item}});
    }
}

void ItemEvents::translate_of_items(
    const Role& role, std::uint32_t events, const std::string& name, std::vector<ItemEvent>& told)
{
    if ((events & (END_OF_DIRECTORY | IN_IGNORED)) != 0)
        return told.push_back({Event::DIRECTORY, {&role, {}}});
    if (const auto metadir = m_items.find({&role, name}); metadir != m_items.end()) {
        const Event came = (events & IN_CREATE) != 0 ? Event::METADIR_MADE : Event::METADIR;
        return told.push_back(
            {(events & ARRIVALS) != 0 ? came : Event::SOCKET_GONE, {&role, metadir->second}});
    }
    if (names_item(name, role))
        told.push_back({(events & IN_DELETE) != 0 ? Event::REMOVED : Event::NAME, {&role, name}});
}
