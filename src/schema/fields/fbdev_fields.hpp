// The members of an fbdev output's document, in their order.
#pragma once

#include "schema/field.hpp"

inline constexpr Field FBDEV_FIELDS[] = {
    // A text, unlike the flag below it.
    {"autostart", "autostart", Coding::NULLABLE_TEXT, "", "Whether or not the item is automatically started"},
    {"autorestart", "autorestart", Coding::BOOLEAN, "0",
        "If set, start the item through a management tool that auto-restarts the item on failure"},
    {"driver", "driver", Coding::CONSTANT, "fbdev", ""},
    {"item", "item", Coding::NULLABLE_TEXT, "", "Channel path to feed from"},
    {"force_width", "force width", Coding::NULLABLE_TEXT, "", "Force video output resolution to width"},
    {"force_height", "force height", Coding::NULLABLE_TEXT, "", "Force video output resolution to height"},
    {"device", "device", Coding::NULLABLE_TEXT, "",
        "Specify which device (/dev/fb<N>) or PCI card (pci:AAAA:BB:CC.D) to use"},
    {"output_format", "output format", Coding::NULLABLE_TEXT, "",
        "Force video output to use specific pixel format: rgb555 bgr555 rgb565 bgr565 rgb888 bgr888"},
    {"refresh_rate", "refresh rate", Coding::NULLABLE_TEXT, "",
        "Force video output to specific refresh rate"},
    // Never null: unset shows as the empty text.
    {"take_framebuffer_console", "take framebuffer console", Coding::TEXT, "-1",
        "If framebuffer is used by Linux console, take over the console as well."},
    {"active", "active", Coding::NULLABLE_TEXT, "",
        "Status display, whether or not the framebuffer output is open"},
    {"last_notes", "last notes", Coding::NULLABLE_TEXT, "",
        "Informational notes about opening the framebuffer, for debugging purposes."},
    {"last_error", "last error", Coding::NULLABLE_TEXT, "",
        "Last error encountered when trying to open the framebuffer"},
    {"using_device", "using device", Coding::NULLABLE_TEXT, "", "Framebuffer device currently in use"},
    {"using_fbcon", "using fbcon", Coding::NULLABLE_TEXT, "",
        "Whether or not the framebuffer console was taken over for the output's use."},
    {"autostart_item", "autostart item", Coding::NULLABLE_TEXT, "",
        "If set, the output will attempt to start the item it feeds from when you start the output, and will attempt to restart the item automatically."},
};
