// The info list of an item: for each key a value, where it comes from, and how to present it.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// All texts are views of what the list was filled from: a settings file, a manifest, a report, a literal.
struct infolist_item {
    std::string_view desc;
    std::string_view ui_text;  // JSON text of presentation hints
    std::string_view value;    // several lines are joined with a line feed

    char marker = 0;            // where the entry comes from: 0 for a setting, or as a listing shows it
    bool quick_summary = true;  // belongs to the short summary
    bool s_flag = false;        // "!s:" in a listing
    bool nogui_flag = false;    // "!nogui:" in a listing
};

// A map from keys to entries, ordered by the bytes of the keys. Keys and texts must outlive the list and its
// copies, unless they are kept in it.
class InfoList {
public:
    using Entry = std::pair<std::string_view, infolist_item>;

    auto begin() const { return m_entries.begin(); }
    auto end() const { return m_entries.end(); }
    std::size_t size() const { return m_entries.size(); }
    void clear();

    // The entry of the key, or null.
    const infolist_item* find(std::string_view key) const;

    // The entry of the key, made if there is none. Making one moves the others.
    infolist_item& operator[](std::string_view key);

    // The same for many keys in one pass: `sorted` holds pairs of a key and anything, in the order of the
    // keys, of which some may be equal. Calls fill(entry, anything, whether the entry is new) for each of
    // them.
    template <typename Sorted, typename Fill> void update(const Sorted& sorted, Fill fill);

    // Keeps the text as long as the list and its copies last.
    std::string& keep(std::string text);

private:
    std::vector<Entry> m_entries;
    std::vector<std::shared_ptr<std::string>> m_kept;
};

template <typename Sorted, typename Fill> void InfoList::update(const Sorted& sorted, Fill fill)
{
    constexpr std::size_t SINGLE_ENTRIES = 8;  // room for those that operator[] adds to a listing
    std::vector<Entry> merged;
    merged.reserve(m_entries.size() + sorted.size() + SINGLE_ENTRIES);
    auto old = m_entries.begin();
    for (const auto& [key, anything] : sorted) {
        int order = -1;
        while (old != m_entries.end() && (order = old->first.compare(key)) < 0)
            merged.push_back(*old++);
        const bool is_old = old != m_entries.end() && order == 0;
        const bool is_new = !is_old && (merged.empty() || merged.back().first != key);
        if (is_old)
            merged.push_back(*old++);
        else if (is_new)
            merged.emplace_back(key, infolist_item{});
        fill(merged.back().second, anything, is_new);
    }
    merged.insert(merged.end(), old, m_entries.end());
    m_entries.swap(merged);
}
