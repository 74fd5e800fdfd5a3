// The items of a selection as they are, and each change of them as it comes.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "control/processes/driver_look.hpp"
#include "zelmctl/item_events.hpp"
#include "zelmctl/selection.hpp"

struct ItemChange {
    enum class What : std::uint8_t { PRESENT, CREATED, DELETED, SETTINGS, RUNNING, STOPPED, GAP };
    What what;
    ItemId item{};  // none of a GAP, behind which each item is PRESENT again
    pid_t pid = 0;  // of one that runs; 0 of one that came up and ended before it could be looked at
    std::optional<int> ending{};  // of one that STOPPED, where the kernel tells it: as of waitpid(2)
};

class ObservedItems {
public:
    // Begins to watch, and looks. The kernel tells how a process ended once its parent has taken note, which
    // that many milliseconds are waited for, and half as many after each that took none.
    ObservedItems(const Selection& selection, int patience_ms);

    // What went wrong, which ends the watching; empty as long as nothing has.
    const std::string& fault() const { return m_fault; }

    struct State {
        pid_t pid = 0;
        bool is_hidden = false;  // it is served by somebody whom the caller may not see
    };
    // None for an item that isn't there.
    std::optional<State> state(const ItemId& item) const;

    // The items that are there.
    std::vector<ItemId> items() const;

    // Becomes readable when proceed() has something to take, and the time at which to call it whatever has
    // happened.
    int descriptor() const { return m_poll.get(); }
    std::uint64_t due() const;

    // Takes what has come, without waiting, in the order in which it came about. The first call tells of what
    // was there already.
    std::vector<ItemChange> proceed();

private:
    // What tells one content of a settings file from another.
    struct Contents {
        std::uint64_t device, inode, size;
        std::int64_t seconds, nanoseconds;
        bool operator==(const Contents&) const = default;
    };
    struct Observed {
        Contents contents;
        RunningDriver driver{};
        HeldProcess process{};
        bool came_up = false;  // its socket came, and whose that is isn't known yet
        int looks_left = 0;    // for that
        std::uint64_t next_look = 0;
    };
    using Place = std::map<ItemId, Observed>::iterator;

    static std::optional<Contents> contents_of(const ItemId& item);
    void tell(ItemChange::What what, const ItemId& item, pid_t pid = 0, std::optional<int> ending = {});
    void take_stock();
    void watch(const Role& role);
    void add(const ItemId& item, const Contents& contents);
    void remove(Place place);
    void heed(const ItemEvent& event);
    void heed_name(const ItemId& item);
    void heed_metadir(Place place, bool is_new);
    void heed_socket_made(Place place);
    void heed_socket_gone(Place place);
    void heed_ends();
    static void seek(Place place);
    void look_at_sought();
    void note_driver(Place place, const RunningDriver& driver);
    void note_look_in_vain(Place place);
    void note_came_and_went(Place place);
    void note_end(Place place);
    void fail(int error);

    Selection m_selection;
    const int m_full_patience_ms;
    int m_patience_ms;  // as long as parents take note; less each time that one didn't
    std::string m_fault;
    ItemEvents m_events;
    Descriptor m_poll;
    std::map<ItemId, Observed> m_items;
    std::map<int, ItemId> m_processes;  // by their descriptors
    std::vector<ItemChange> m_changes;
    std::uint64_t m_next_look = 0;
};
