#include "schema/consume/consume_x11.hpp"

void ConsumeX11::createItems()
{
    driver(top());
    name(top());
    source(top());
    behavior(top());
    x11(top());
    video(top());
    debug(top());
}

void ConsumeX11::driver(Params params)
{
    create_item("", params.constant("driver", "x11"));
}

void ConsumeX11::name(Params params)
{
    create_item("", params.string("name").or_null().description("Gives the output a human-readable name"));
}

void ConsumeX11::source(Params params)
{
    create_item("item", params.array("source").description("Channel path to feed from"));
}

void ConsumeX11::behavior(Params params)
{
    params.push("behavior");
    behavior_autostart(params);
    behavior_restart(params);
    behavior_autostartSource(params);
}

void ConsumeX11::behavior_autostart(Params params)
{
    create_item("autostart",
        params.boolean("autostart", "0").description("Whether or not the item is automatically started"));
}

void ConsumeX11::behavior_restart(Params params)
{
    create_item("autorestart",
        params.boolean("restart", "0")
            .description(
                "If set, start the item through a management tool that auto-restarts the item on failure"));
}

void ConsumeX11::behavior_autostartSource(Params params)
{
    create_item("autostart item",
        params.boolean("autostartSource", "0")
            .description(
                "If set, the output will attempt to start the item it feeds from when you start the output, and will attempt to restart the item automatically."));
}

void ConsumeX11::x11(Params params)
{
    params.push("x11");
    x11_title(params);
    x11_keepAbove(params);
    x11_modeset(params);
    x11_resize(params);
    x11_active(params);
    x11_window(params);
    x11_server(params);
    x11_xv(params);
    x11_shm(params);
    x11_fullscreen(params);
}

void ConsumeX11::x11_title(Params params)
{
    create_item(
        "title", params.string("title", "Tavorn 4 X11/XVideo output").description("X11 Window title"));
}

void ConsumeX11::x11_keepAbove(Params params)
{
    create_item("always on top",
        params.boolean("keepAbove", "0").description("Keep the window on top of other windows at all times"));
}

void ConsumeX11::x11_modeset(Params params)
{
    create_item("modechange",
        params.boolean("modeset", "0").description("Automatically change X video mode to fit video"));
}

void ConsumeX11::x11_resize(Params params)
{
    create_item("always resize window",
        params.boolean("resize", "0")
            .description(
                "If set, window will always resize to show the video. If not set, window will not resize and video will fit within it"));
}

void ConsumeX11::x11_active(Params params)
{
    create_item("active", params.boolean("active").description("Status, whether X11 window is active"));
}

void ConsumeX11::x11_window(Params params)
{
    create_item("xwindow", params.integer("window").description("Status, X window ID"));
}

void ConsumeX11::x11_server(Params params)
{
    create_item(
        "using x11 server", params.string("server").description("Status, what X11 server is being used"));
}

void ConsumeX11::x11_xv(Params params)
{
    params.push("xv");
    x11_xv_enable(params);
    x11_xv_using(params);
}

void ConsumeX11::x11_xv_enable(Params params)
{
    create_item("disable xv", params.boolean("enable", "1").description("Use Xv video overlay"));
}

void ConsumeX11::x11_xv_using(Params params)
{
    create_item("using xv",
        params.boolean("using").description("Status, whether or not using XV (XVideo) extensions"));
}

void ConsumeX11::x11_shm(Params params)
{
    params.push("shm");
    x11_shm_enable(params);
    x11_shm_using(params);
}

void ConsumeX11::x11_shm_enable(Params params)
{
    create_item("disable shm", params.boolean("enable", "1").description("Use SHM extension with X11"));
}

void ConsumeX11::x11_shm_using(Params params)
{
    create_item("using shm",
        params.boolean("using").description("Status, whether or not using SHM (shared memory mapping)"));
}

void ConsumeX11::x11_fullscreen(Params params)
{
    params.push("fullscreen");
    x11_fullscreen_enable(params);
    x11_fullscreen_using(params);
    x11_fullscreen_position(params);
}

void ConsumeX11::x11_fullscreen_enable(Params params)
{
    create_item("fullscreen",
        params.boolean("enable", "0")
            .description(
                "Automatically make display window fullscreen. Hit ESC at any time to leave fullscreen mode."));
}

void ConsumeX11::x11_fullscreen_using(Params params)
{
    create_item(
        "using fullscreen", params.boolean("using").description("Status, whether the window is fullscreen"));
}

void ConsumeX11::x11_fullscreen_position(Params params)
{
    params.push("position");
    x11_fullscreen_position_x(params);
    x11_fullscreen_position_y(params);
}

void ConsumeX11::x11_fullscreen_position_x(Params params)
{
    create_item("fullscreen x",
        params.integer("x", "0").description("When fullscreen, position window at X-coordinate"));
}

void ConsumeX11::x11_fullscreen_position_y(Params params)
{
    create_item("fullscreen y",
        params.integer("y", "0").description("When fullscreen, position window at Y-coordinate"));
}

void ConsumeX11::video(Params params)
{
    params.push("video");
    video_stretch(params);
    video_rate(params);
}

void ConsumeX11::video_stretch(Params params)
{
    create_item("disable stretching",
        params.boolean("stretch", "1").description("Stretch frame to match aspect ratio"));
}

void ConsumeX11::video_rate(Params params)
{
    create_item("frame rate reduce",
        params.integer("rate", "0")
            .description(
                "If set, reduce frame rate down to the given rate. For use with slow X11 displays."));
}

void ConsumeX11::debug(Params params)
{
    params.push("debug");
    debug_lastError(params);
    debug_lastNotes(params);
}

void ConsumeX11::debug_lastError(Params params)
{
    create_item("last error",
        params.string("lastError").description("Last error encountered when trying to open the X11 window"));
}

void ConsumeX11::debug_lastNotes(Params params)
{
    create_item("last notes",
        params.string("lastNotes")
            .description("Informational notes about opening the X11 window, for debugging purposes."));
}
