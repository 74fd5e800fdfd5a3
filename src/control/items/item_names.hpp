// What items may be called.
#pragma once

#include <string_view>

// "", "all" and "autostart" are no items.
bool is_item_name(std::string_view name);

// "channel1" to "channel999999".
bool is_valid_channel_name(std::string_view name);
