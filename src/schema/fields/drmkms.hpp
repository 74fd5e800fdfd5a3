// The members of a drmkms output's document, in their order.
#pragma once

#include "schema/fields/display_output.hpp"

namespace fields {

inline constexpr Row DRMKMS[] = {
    {"driver", "", CONSTANT, "drmkms", ""},
    {"", "", DISPLAY_OUTPUT},
    {"kms.active", "active", TEXT, "", "Status", STATUS},
    {"kms.audio", "audio", TEXT, "on",
        "Audio control for the output, if applicable. Set to 'on' to allow audio over HDMI and DVI-D connections.",
        words("on|off|auto|nochange")},
    {"kms.restoreOnDisconnect", "restore on item disconnect", BOOLEAN, "0",
        "If enabled, the output driver will restore the output to it's former state when the item it's connected to shuts down."},
    {"kms.backlight", "backlight level", NULLABLE_INTEGER, "",
        "If display has a backlight, set it to this level"},
    {"kms.refreshRate", "refresh rate", NULLABLE_NUMBER, "", "Force refresh rate to specified Hz"},
    {"kms.useEDID", "match known", BOOLEAN, "1",
        "Try to match modes returned from the monitor via EDID and use them"},
    {"kms.pixelFormat", "output format", TEXT, "rgb888", "Force pixel format",
        words("rgb555|bgr555|rgb565|bgr565|rgb888|bgr888")},
    {"kms.connector.card.select", "device", DEVICE, "0",
        "What device to use, either by index (/dev/dri/card<N>) or by PCI device (pci:AAAA:BB:CC.D)"},
    {"kms.connector.card.using", "using device", TEXT, "", "Which device is in use now", STATUS},
    {"kms.connector.type", "connector", TEXT, "hdmi", "What kind of connector to use on the card",
        words("hdmi|vga|dvi-d|lvds")},
    {"kms.connector.index", "connector index", NULLABLE_INTEGER, "",
        "Among multiple connectors of the same type, which connector to use"},
    {"kms.connector.skipUnconnected", "skip unconnected", BOOLEAN, "1",
        "When counting connectors, skip connectors that do not have anything plugged in to them."},
    {"kms.master.enable", "drm master", BOOLEAN, "0",
        "Operate as DRM/KMS master. You need to clear this option if you don't want the driver to coexist with X-Windows."},
    {"kms.master.using", "using drm as master", BOOLEAN, "", "Whether using the device as DRM master",
        STATUS},
    {"kms.fbconOverride.enable", "fbcon override", BOOLEAN, "0",
        "Take over the console if fbdev + fbcon occupy that output. You will lose access to the console on that output until this output is stopped."},
    {"kms.fbconOverride.using", "using fbcon", BOOLEAN, "", "Whether fbcon override is active", STATUS},
    {"kms.x11Override", "x override", BOOLEAN, "1",
        "If set, driver will not attempt video output while X-Windows is running."},
    {"kms.pageFlipping.enable", "use page flipping", BOOLEAN, "1",
        "Use hardware page flipping, if available. Enabling this option will eliminate tearlines and judder, if supported by the hardware."},
    {"kms.pageFlipping.using", "using page flipping", BOOLEAN, "",
        "Whether the driver is using page flipping", STATUS},
    {"video.forceSize.width", "force width", NULLABLE_INTEGER, "", "Force display width"},
    {"video.forceSize.height", "force height", NULLABLE_INTEGER, "", "Force display height"},
    {"video.interlaced", "interlaced", BOOLEAN, "0", "Try to enable interlaced video output."},
    {"video.scaleMode", "scale mode", NULLABLE_TEXT, "",
        "If display has a scalar (Laptop LVDS panels) set the scale mode",
        words("none|fullscreen|center|aspect")},
    {"debug.lastError", "last error", TEXT, "", "Last error encountered when trying to open the device",
        STATUS},
    {"debug.lastNotes", "last notes", TEXT, "", "Informational notes about opening the device", DEBUG_STATUS},
};

}  // namespace fields
