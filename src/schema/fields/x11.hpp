// The members of an x11 output's document, in their order.
#pragma once

#include "schema/fields/display_output.hpp"

namespace fields {

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
