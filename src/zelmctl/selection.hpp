// Which items a command line names.
#pragma once

#include <array>
#include <set>
#include <string>
#include <string_view>
#include <tuple>

#include "control/items/role.hpp"

// An item of the appliance.
struct ItemId {
    const Role* role;  // a row of ROLES
    std::string name;

    // Kind by kind in the order of ROLES, then by the bytes of the names.
    bool operator<(const ItemId& other) const
    {
        return std::tie(role, name) < std::tie(other.role, other.name);
    }
    bool operator==(const ItemId&) const = default;
};

// The role whose items are called by that word, "output"; null for none.
const Role* role_called(std::string_view word);

// "output/main", for people.
std::string printable(const ItemId& item);

// The member of a document that has the items of a kind: "outputs".
std::string plural(const Role& role);

class Selection {
public:
    // Takes in "output/main", "output" for all outputs, or "all". False for what is none of that.
    bool add(std::string_view word);
    void add(const ItemId& item);

    bool is_empty() const;
    bool has_all(const Role& role) const { return of(role).has_all; }
    bool has_any(const Role& role) const { return has_all(role) || !names(role).empty(); }
    bool includes(const ItemId& item) const;

    // The items of the kind that are named one by one.
    const std::set<std::string, std::less<>>& names(const Role& role) const { return of(role).names; }

private:
    struct OfRole {
        bool has_all = false;
        std::set<std::string, std::less<>> names{};
    };
    const OfRole& of(const Role& role) const { return m_roles[static_cast<std::size_t>(&role - ROLES)]; }

    std::array<OfRole, std::size(ROLES)> m_roles;
};
