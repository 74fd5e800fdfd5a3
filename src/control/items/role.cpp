#include "control/items/role.hpp"

#include <algorithm>
#include <iterator>

int number_of(const Role& role)
{
    return static_cast<int>(role.kind);
}

const Role* find_role(int number)
{
    const auto* found = std::find_if(
        std::begin(ROLES), std::end(ROLES), [&](const Role& role) { return number_of(role) == number; });
    return found == std::end(ROLES) ? nullptr : found;
}

const Role* find_role(std::string_view tool)
{
    const auto* found =
        std::find_if(std::begin(ROLES), std::end(ROLES), [&](const Role& role) { return role.tool == tool; });
    return found == std::end(ROLES) ? nullptr : found;
}

std::string driver_program(const Role& role, const std::string& driver)
{
    return role.driver_source == DriverSource::NOTHING ? role.program : role.program + driver;
}

std::string manifest_path(const Role& role, const std::string& driver)
{
    return "/usr/share/tavorn4/arglist/" + driver_program(role, driver) + ".al";
}
