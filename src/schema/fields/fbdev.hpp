// The members of an fbdev output's document, in their order.
#pragma once

#include "schema/fields/output.hpp"

namespace fields {

inline constexpr Row FBDEV[] = {
    {"", "", OUTPUT_START},
    {"driver", NULLABLE_CONSTANT, "fbdev", ""},
    {"item", NULLABLE_TEXT, "Channel path to feed from"},
    {"force width", NULLABLE_TEXT, "Force video output resolution to width"},
    {"force height", NULLABLE_TEXT, "Force video output resolution to height"},
    {"device", NULLABLE_TEXT, "Specify which device (/dev/fb<N>) or PCI card (pci:AAAA:BB:CC.D) to use"},
    {"output format", NULLABLE_TEXT,
        "Force video output to use specific pixel format: rgb555 bgr555 rgb565 bgr565 rgb888 bgr888"},
    {"refresh rate", NULLABLE_TEXT, "Force video output to specific refresh rate"},
    // Never null: unset shows as the empty text.
    {"take framebuffer console", TEXT, "-1",
        "If framebuffer is used by Linux console, take over the console as well."},
    {"active", NULLABLE_TEXT, "Status display, whether or not the framebuffer output is open", STATUS},
    {"last notes", NULLABLE_TEXT,
        "Informational notes about opening the framebuffer, for debugging purposes.", DEBUG_STATUS},
    {"last error", NULLABLE_TEXT, "Last error encountered when trying to open the framebuffer", STATUS},
    {"using device", NULLABLE_TEXT, "Framebuffer device currently in use", STATUS},
    {"using fbcon", NULLABLE_TEXT,
        "Whether or not the framebuffer console was taken over for the output's use.", STATUS},
    {"", "", AUTOSTART_ITEM},
};

}  // namespace fields
