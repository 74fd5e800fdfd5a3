#include "control/items/item_names.hpp"

bool is_item_name(std::string_view name)
{
    return !name.empty() && name != "all" && name != "autostart";
}

bool is_valid_channel_name(std::string_view name)
{
    constexpr std::string_view PREFIX = "channel";
    if (!name.starts_with(PREFIX))
        return false;
    const std::string_view digits = name.substr(PREFIX.size());
    return !digits.empty() && digits.size() < 7 && digits.front() != '0' &&
           digits.find_first_not_of("0123456789") == std::string_view::npos;
}
