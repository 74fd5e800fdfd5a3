// What the documents of most outputs have in common.
#pragma once

#include "schema/row.hpp"

namespace fields {

inline constexpr Row OUTPUT_START[] = {
    // A text, unlike the flag below it.
    {"autostart", NULLABLE_TEXT, "Whether or not the item is automatically started"},
    {"autorestart", BOOLEAN, "0",
        "If set, start the item through a management tool that auto-restarts the item on failure"},
};

inline constexpr Row AUTOSTART_ITEM[] = {
    {"autostart item", NULLABLE_TEXT,
        "If set, the output will attempt to start the item it feeds from when you start the output, and will attempt to restart the item automatically."},
};

}  // namespace fields
