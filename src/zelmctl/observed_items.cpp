#include "zelmctl/observed_items.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/epoll.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "control/items/item_directory.hpp"
#include "control/items/metadir.hpp"
#include "platform/time.hpp"
#include "zelmctl/ending.hpp"
#include "zelmctl/found_items.hpp"

namespace {

using Change = ItemChange::What;

// The entry of a socket comes a moment before the kernel's table has its row.
constexpr int LOOKS = 8;
constexpr std::uint64_t FIRST_PAUSE_US = 1000;  // doubled from look to look
// When many come up at once, looks leave them the processor.
constexpr std::uint64_t PAUSE_FOR_EACH_US = 500;
constexpr std::uint64_t LONGEST_PAUSE_US = 5000;

// Without some to spare no look at the processes is possible, and all would seem to be stopped.
constexpr rlim_t SPARE_DESCRIPTORS = 16;

bool leaves_too_few(int descriptor)
{
    rlimit limit{};
    ::getrlimit(RLIMIT_NOFILE, &limit);
    return descriptor < 0 || static_cast<rlim_t>(descriptor) + SPARE_DESCRIPTORS >= limit.rlim_cur;
}

bool has_socket(const ItemId& item)
{
    struct stat entry {};
    return ::lstat(active_socket_path(metadir_of(item)).c_str(), &entry) == 0;
}

int add_to_poll(int poll, int descriptor)
{
    epoll_event readable{.events = EPOLLIN, .data = {.fd = descriptor}};
    return ::epoll_ctl(poll, EPOLL_CTL_ADD, descriptor, &readable);
}

}  // namespace

ObservedItems::ObservedItems(const Selection& selection, int patience_ms)
    : m_selection(selection), m_full_patience_ms(patience_ms), m_patience_ms(patience_ms),
      m_poll(::epoll_create1(EPOLL_CLOEXEC))
{
    if (!m_poll || m_events.descriptor() < 0 || add_to_poll(m_poll.get(), m_events.descriptor()) != 0)
        fail(errno);
    else
        take_stock();
}

std::optional<ObservedItems::State> ObservedItems::state(const ItemId& item) const
{
    const auto found = m_items.find(item);
    if (found == m_items.end())
        return {};
    const Observed& observed = found->second;
    return State{observed.driver.pid, observed.driver.is_hidden};
}

std::vector<ItemId> ObservedItems::items() const
{
    std::vector<ItemId> items;
    for (const auto& [item, observed] : m_items)
        items.push_back(item);
    return items;
}

std::uint64_t ObservedItems::due() const
{
    if (!m_changes.empty())
        return 0;
    std::uint64_t due = NO_DEADLINE;
    for (const auto& [item, observed] : m_items)
        if (observed.looks_left > 0)
            due = std::min(due, std::max(observed.next_look, m_next_look));
    return due;
}

std::vector<ItemChange> ObservedItems::proceed()
{
    for (const ItemEvent& event : m_events.read())
        heed(event);
    heed_ends();
    look_at_sought();
    return std::exchange(m_changes, {});
}

std::optional<ObservedItems::Contents> ObservedItems::contents_of(const ItemId& item)
{
    struct stat state {};
    const std::string path = settings_path(item.role->directory, item.name);
    if (!names_item(item.name, *item.role) || ::lstat(path.c_str(), &state) != 0 || !S_ISREG(state.st_mode))
        return {};
    return Contents{state.st_dev, state.st_ino, static_cast<std::uint64_t>(state.st_size),
        state.st_mtim.tv_sec, state.st_mtim.tv_nsec};
}

void ObservedItems::tell(Change what, const ItemId& item, pid_t pid, std::optional<int> ending)
{
    m_changes.push_back({what, item, pid, ending});
}

// All is looked at anew, behind what has been told.
void ObservedItems::take_stock()
{
    std::vector<ItemChange> before = std::exchange(m_changes, {});
    const std::map<ItemId, Observed> known = std::exchange(m_items, {});
    m_processes.clear();
    for (const auto& [item, observed] : known)
        m_events.forget(item);
    for (const Role& role : ROLES)
        watch(role);
    look_at_sought();
    m_changes = std::move(before);
    for (const auto& [item, observed] : m_items)
        tell(Change::PRESENT, item, observed.driver.pid);
    for (const auto& [item, observed] : known)
        if (!m_items.contains(item))
            tell(Change::DELETED, item);
}

void ObservedItems::watch(const Role& role)
{
    if (!m_selection.has_all(role) && m_selection.names(role).empty())
        return;
    if (!m_events.watch(role))
        return fail(errno);
    const Directory directory(::opendir(role.directory));
    const auto names = directory ? read_item_names(directory.get(), role) : std::vector<std::string>();
    if (!names || (!directory && errno != ENOENT))
        return fail(errno);
    for (auto place = m_items.begin(); place != m_items.end();) {
        const auto next = std::next(place);
        if (place->first.role == &role &&
            !std::binary_search(names->begin(), names->end(), place->first.name))
            remove(place);
        place = next;
    }
    for (const std::string& name : *names)
        heed_name({&role, name});
}

void ObservedItems::add(const ItemId& item, const Contents& contents)
{
    const Place place = m_items.emplace(item, Observed{contents}).first;
    tell(Change::CREATED, item);
    if (!m_events.watch(item))
        fail(errno);
    seek(place);
}

void ObservedItems::remove(Place place)
{
    note_end(place);
    tell(Change::DELETED, place->first);
    m_events.forget(place->first);
    m_items.erase(place);
}

void ObservedItems::heed(const ItemEvent& event)
{
    if (event.what == ItemEvent::What::OVERFLOW) {
        tell(Change::GAP, {});
        return take_stock();
    }
    if (event.what == ItemEvent::What::DIRECTORY)
        return watch(*event.item.role);
    if (event.what == ItemEvent::What::NAME)
        return heed_name(event.item);
    const Place place = m_items.find(event.item);
    if (place == m_items.end())
        return;
    switch (event.what) {
    case ItemEvent::What::REMOVED: return remove(place);
    case ItemEvent::What::METADIR_MADE:
    case ItemEvent::What::METADIR: return heed_metadir(place, event.what == ItemEvent::What::METADIR_MADE);
    case ItemEvent::What::SOCKET_MADE: return heed_socket_made(place);
    default: return heed_socket_gone(place);
    }
}

// New contents change places with the old ones, so that a name may seem to go for a moment.
void ObservedItems::heed_name(const ItemId& item)
{
    if (!m_selection.includes(item))
        return;
    const auto contents = contents_of(item);
    const Place place = m_items.find(item);
    if (contents && place == m_items.end())
        return add(item, *contents);
    if (!contents && place != m_items.end())
        return remove(place);
    if (contents && std::exchange(place->second.contents, *contents) != *contents)
        tell(Change::SETTINGS, item);
}

// The entry of a socket in a new metadir may have come before the watch, which then tells nothing of it. Its
// driver may be gone, too.
void ObservedItems::heed_metadir(Place place, bool is_new)
{
    if (!m_events.watch(place->first))
        fail(errno);
    if (is_new && has_socket(place->first))
        return heed_socket_made(place);
    seek(place);
}

void ObservedItems::heed_socket_made(Place place)
{
    place->second.came_up = place->second.driver.pid == 0;
    seek(place);
}

void ObservedItems::heed_socket_gone(Place place)
{
    if (place->second.came_up)
        note_came_and_went(place);
    note_end(place);
    place->second.looks_left = 0;
}

void ObservedItems::heed_ends()
{
    epoll_event ready[64];
    const int count = ::epoll_wait(m_poll.get(), ready, std::size(ready), 0);
    for (int i = 0; i < count; ++i)
        if (const auto process = m_processes.find(ready[i].data.fd); process != m_processes.end()) {
            const Place place = m_items.find(process->second);
            note_end(place);
            seek(place);  // another process may serve the item
        }
}

void ObservedItems::seek(Place place)
{
    place->second.looks_left = LOOKS;
    place->second.next_look = 0;
}

// One look for all that is due. What it found of an item that changed meanwhile may belong to a driver whose
// coming is still to be told: those changes are heeded first, and the item is looked at again.
void ObservedItems::look_at_sought()
{
    const std::uint64_t now = monotonic_clock_us();
    if (now < m_next_look)
        return;
    std::vector<ItemId> sought;
    for (const auto& [item, observed] : m_items)
        if (observed.looks_left > 0 && observed.next_look <= now)
            sought.push_back(item);
    if (sought.empty())
        return;
    const FoundDrivers found = find_drivers(sought);
    if (found.status != IS_SO)
        return fail(ENOENT);
    const std::vector<ItemEvent> events = m_events.read();
    const auto has_changed = [&](const ItemId& item) {
        return std::any_of(
            events.begin(), events.end(), [&](const ItemEvent& event) { return event.item == item; });
    };
    for (std::size_t i = 0; i < sought.size(); ++i)
        if (!has_changed(sought[i]))
            note_driver(m_items.find(sought[i]), found.drivers[i]);
    m_next_look = monotonic_clock_us() + std::min(LONGEST_PAUSE_US, PAUSE_FOR_EACH_US * sought.size());
    for (const ItemEvent& event : events)
        heed(event);
}

void ObservedItems::note_driver(Place place, const RunningDriver& driver)
{
    Observed& observed = place->second;
    const bool is_known = driver.pid != 0 && driver.pid == observed.driver.pid;
    HeldProcess process = is_known ? std::move(observed.process) : hold(driver);
    if (!is_known)
        note_end(place);
    observed.driver.is_hidden = driver.is_hidden;
    if (!process)
        return note_look_in_vain(place);
    const int descriptor = process.descriptor();
    if (!is_known && leaves_too_few(descriptor))
        return fail(EMFILE);
    if (!is_known && add_to_poll(m_poll.get(), descriptor) != 0)
        return fail(errno);
    observed.driver = driver;
    observed.process = std::move(process);
    observed.looks_left = 0;
    observed.came_up = false;
    if (is_known)
        return;
    m_processes.insert_or_assign(descriptor, place->first);
    tell(Change::RUNNING, place->first, driver.pid);
}

void ObservedItems::note_look_in_vain(Place place)
{
    Observed& observed = place->second;
    if (!has_socket(place->first) || observed.driver.is_hidden)
        observed.looks_left = 1;
    const std::uint64_t pause = FIRST_PAUSE_US << (LOOKS - observed.looks_left);
    observed.next_look = monotonic_clock_us() + pause;
    if (--observed.looks_left == 0 && observed.came_up && !observed.driver.is_hidden)
        note_came_and_went(place);
}

void ObservedItems::note_came_and_went(Place place)
{
    place->second.came_up = false;
    place->second.looks_left = 0;
    tell(Change::RUNNING, place->first);
    tell(Change::STOPPED, place->first);
}

void ObservedItems::note_end(Place place)
{
    Observed& observed = place->second;
    if (observed.driver.pid == 0)
        return;
    const int descriptor = observed.process.descriptor();
    const auto ending = ending_of(descriptor, m_patience_ms);
    m_patience_ms = ending ? m_full_patience_ms : m_patience_ms / 2;
    m_processes.erase(descriptor);
    observed.process = {};
    observed.driver = {};
    tell(Change::STOPPED, place->first, 0, ending);
}

void ObservedItems::fail(int error)
{
    if (!m_fault.empty())
        return;
    m_fault = "watching the items: " + std::string(std::strerror(error));
    if (error == ENOSPC)
        m_fault += ", as many watches as fs.inotify.max_user_watches allows";
}
