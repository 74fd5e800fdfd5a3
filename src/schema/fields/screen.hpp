// The members of the documents of outputs that show a picture on a screen, in their order.
#pragma once

#include "schema/row.hpp"

namespace fields {

// Behind the driver.
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

inline constexpr Row X11[] = {
    {"driver", "", CONSTANT, "x11", ""},
    {"", "", DISPLAY_OUTPUT},
    {"x11.title", "title", TEXT, "Tavorn 4 X11/XVideo output", "X11 Window title"},
    {"x11.keepAbove", "always on top", BOOLEAN, "0", "Keep the window on top of other windows at all times"},
    {"x11.modeset", "modechange", BOOLEAN, "0", "Automatically change X video mode to fit video"},
    {"x11.resize", "always resize window", BOOLEAN, "0",
        "If set, window will always resize to show the video. If not set, window will not resize and video will fit within it"},
    {"x11.active", "active", BOOLEAN, "", "Status, whether X11 window is active", STATUS},
    {"x11.window", "xwindow", INTEGER, "", "Status, X window ID", STATUS},
    {"x11.server", "using x11 server", TEXT, "", "Status, what X11 server is being used", STATUS},
    // The three members that are on where their keys say "disable" have the truth of the keys.
    {"x11.xv.enable", "disable xv", BOOLEAN, "1", "Use Xv video overlay"},
    {"x11.xv.using", "using xv", BOOLEAN, "", "Status, whether or not using XV (XVideo) extensions", STATUS},
    {"x11.shm.enable", "disable shm", BOOLEAN, "1", "Use SHM extension with X11"},
    {"x11.shm.using", "using shm", BOOLEAN, "", "Status, whether or not using SHM (shared memory mapping)",
        STATUS},
    {"x11.fullscreen.enable", "fullscreen", BOOLEAN, "0",
        "Automatically make display window fullscreen. Hit ESC at any time to leave fullscreen mode."},
    {"x11.fullscreen.using", "using fullscreen", BOOLEAN, "", "Status, whether the window is fullscreen",
        STATUS},
    {"x11.fullscreen.position.x", "fullscreen x", INTEGER, "0",
        "When fullscreen, position window at X-coordinate"},
    {"x11.fullscreen.position.y", "fullscreen y", INTEGER, "0",
        "When fullscreen, position window at Y-coordinate"},
    {"video.stretch", "disable stretching", BOOLEAN, "1", "Stretch frame to match aspect ratio"},
    {"video.rate", "frame rate reduce", INTEGER, "0",
        "If set, reduce frame rate down to the given rate. For use with slow X11 displays."},
    {"debug.lastError", "last error", TEXT, "", "Last error encountered when trying to open the X11 window",
        STATUS},
    {"debug.lastNotes", "last notes", TEXT, "",
        "Informational notes about opening the X11 window, for debugging purposes.", DEBUG_STATUS},
};

}  // namespace fields
