// What the documents of the outputs that show a picture on a screen begin with, behind the driver.
#pragma once

#include "schema/row.hpp"

namespace fields {

using enum Coding;

inline constexpr Row DISPLAY_OUTPUT[] = {
    // A document can't rename an output.
    {{"name", "", CONSTANT}, {"name", "", NULLABLE_TEXT}, "Gives the output a human-readable name"},
    {"source", "item", PATH, "", "Channel path to feed from"},
    {"behavior.autostart", "autostart", BOOLEAN, "0", "Whether or not the item is automatically started"},
    {"behavior.restart", "autorestart", BOOLEAN, "0",
        "If set, start the item through a management tool that auto-restarts the item on failure"},
    {"behavior.autostartSource", "autostart item", BOOLEAN, "0",
        "If set, the output will attempt to start the item it feeds from when you start the output, and will attempt to restart the item automatically."},
};

}  // namespace fields
