#include "settings/infolist_item.hpp"

#include <algorithm>

namespace {

bool has_key_below(const InfoList::Entry& entry, std::string_view key)
{
    return entry.first < key;
}

}  // namespace

void InfoList::clear()
{
    m_entries.clear();
    m_kept.clear();
}

const infolist_item* InfoList::find(std::string_view key) const
{
    const auto at = std::lower_bound(m_entries.begin(), m_entries.end(), key, has_key_below);
    return at != m_entries.end() && at->first == key ? &at->second : nullptr;
}

infolist_item& InfoList::operator[](std::string_view key)
{
    auto at = std::lower_bound(m_entries.begin(), m_entries.end(), key, has_key_below);
    if (at == m_entries.end() || at->first != key)
        at = m_entries.emplace(at, key, infolist_item{});
    return at->second;
}

std::string& InfoList::keep(std::string text)
{
    return *m_kept.emplace_back(std::make_shared<std::string>(std::move(text)));
}
