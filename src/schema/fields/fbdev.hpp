// The members of an fbdev output's document, in their order.
#pragma once

#include "schema/fields/output.hpp"

namespace fields {

using enum Coding;

inline constexpr Row FBDEV[] = {
    {"", "", OUTPUT_START},
    {"driver", "driver", NULLABLE_CONSTANT, "fbdev", ""},
    {"item", "item", NULLABLE_TEXT, "", "Channel path to feed from"},
    {"force_width", "force width", NULLABLE_TEXT, "", "Force video output resolution to width"},
    {"force_height", "force height", NULLABLE_TEXT, "", "Force video output resolution to height"},
    {"device", "device", NULLABLE_TEXT, "",
        "Specify which device (/dev/fb<N>) or PCI card (pci:AAAA:BB:CC.D) to use"},
    {"output_format", "output format", NULLABLE_TEXT, "",
        "Force video output to use specific pixel format: rgb555 bgr555 rgb565 bgr565 rgb888 bgr888"},
    {"refresh_rate", "refresh rate", NULLABLE_TEXT, "", "Force video output to specific refresh rate"},
    // Never null: unset shows as the empty text.
    {"take_framebuffer_console", "take framebuffer console", TEXT, "-1",
        "If framebuffer is used by Linux console, take over the console as well."},
    {"active", "active", NULLABLE_TEXT, "", "Status display, whether or not the framebuffer output is open",
        STATUS},
    {"last_notes", "last notes", NULLABLE_TEXT, "",
        "Informational notes about opening the framebuffer, for debugging purposes.", DEBUG_STATUS},
    {"last_error", "last error", NULLABLE_TEXT, "",
        "Last error encountered when trying to open the framebuffer", STATUS},
    {"using_device", "using device", NULLABLE_TEXT, "", "Framebuffer device currently in use", STATUS},
    {"using_fbcon", "using fbcon", NULLABLE_TEXT, "",
        "Whether or not the framebuffer console was taken over for the output's use.", STATUS},
    {"", "", AUTOSTART_ITEM},
};

}  // namespace fields
