#include "settings/infolist_item.hpp"

#include <algorithm>
#include <cstdio>

namespace {

bool has_key_below(const InfoList::Entry& entry, std::string_view key)
{
    return entry.first < key;
}

}  // namespace

std::string infolist_item::marker_string() const
{
    switch (marker) {
    case 0: return "Config";
    case '=': return "Process";
    case '*': return "Transient";
    case '?': return "Not In Config";
    default: return "Unknown";
    }
}

json11::Json infolist_item::ui() const
{
    if (ui_text.empty())
        return json11::Json::object{};
    const std::string text(ui_text);
    std::string error;
    const json11::Json hints = json11::Json::parse(text, error);
    if (!error.empty())
        std::fprintf(stderr, "Error paring %s\n%s\n", text.c_str(), error.c_str());
    return hints.object_items();
}

std::string infolist_item::type() const
{
    return ui()["json_type"].string_value();
}

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
