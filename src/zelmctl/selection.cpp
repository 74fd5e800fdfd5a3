#include "zelmctl/selection.hpp"

#include <algorithm>

#include "control/items/item_names.hpp"
#include "zelmctl/printable.hpp"

const Role* role_called(std::string_view word)
{
    const auto* role =
        std::find_if(std::begin(ROLES), std::end(ROLES), [&](const Role& each) { return word == each.word; });
    return role == std::end(ROLES) ? nullptr : role;
}

std::string printable(const ItemId& item)
{
    return std::string(item.role->word) + "/" + printable(item.name);
}

std::string plural(const Role& role)
{
    return std::string(role.word) + "s";
}

bool Selection::add(std::string_view word)
{
    const std::size_t slash = word.find('/');
    const std::string_view kind = word.substr(0, slash);
    const std::string_view name = slash == word.npos ? "" : word.substr(slash + 1);
    bool is_known = false;
    for (std::size_t i = 0; i < m_roles.size(); ++i) {
        const bool is_kind = kind == ROLES[i].word;
        if (slash == word.npos && (is_kind || word == "all"))
            is_known = m_roles[i].has_all = true;
        else if (is_kind && is_item_name(name) && name != "." && name != ".." && name.find('/') == name.npos)
            is_known = m_roles[i].names.emplace(name).second || true;
    }
    return is_known;
}

void Selection::add(const ItemId& item)
{
    m_roles[static_cast<std::size_t>(item.role - ROLES)].names.insert(item.name);
}

bool Selection::is_empty() const
{
    return std::all_of(m_roles.begin(), m_roles.end(),
        [](const OfRole& role) { return !role.has_all && role.names.empty(); });
}

bool Selection::includes(const ItemId& item) const
{
    return has_all(*item.role) || names(*item.role).contains(item.name);
}
