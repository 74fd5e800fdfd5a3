// What the kernel tells of the directories in which items and their sockets lie. Nothing is ever polled.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/io.hpp"
#include "zelmctl/selection.hpp"

struct ItemEvent {
    enum class What : std::uint8_t {
        NAME,          // what the item's name stands for may have changed
        REMOVED,       // the file of that name went
        METADIR_MADE,  // the item's metadir is new, or
        METADIR,       // was moved to its place
        SOCKET_MADE,   // the socket's entry came, and
        SOCKET_GONE,   // went
        DIRECTORY,     // the directory of the item's role came or went, or lacks a watch for another reason
        OVERFLOW,      // events were lost
    };
    What what;
    ItemId item;  // no name with DIRECTORY, and nothing with OVERFLOW
};

class ItemEvents {
public:
    ItemEvents();

    // Both below tell of what comes from then on, so that a look after them misses nothing. False with errno
    // set when the kernel has no room for them.

    // Watches the role's directory; while there is none, what is there of its path.
    bool watch(const Role& role);

    // Watches the item's metadir, also while there is none.
    bool watch(const ItemId& item);

    void forget(const ItemId& item);

    int descriptor() const { return m_inotify.get(); }

    // What has come, in its order, without waiting.
    std::vector<ItemEvent> read();

private:
    struct Watched {
        const Role* role;    // null for a directory above those of items
        std::string item{};  // of a metadir
    };

    int add(const std::string& path, std::uint32_t events, Watched watched);
    void remove(const Role& role);
    void translate(int watch, std::uint32_t events, const std::string& name, std::vector<ItemEvent>& told);
    void translate_of_items(
        const Role& role, std::uint32_t events, const std::string& name, std::vector<ItemEvent>& told);

    Descriptor m_inotify;
    std::map<int, Watched> m_watched;
    std::map<ItemId, int> m_metadirs;       // -1 while there is none
    std::map<ItemId, std::string> m_items;  // by the names of their metadirs
};
