#include "schema/consume/consume_drmkms.hpp"

void ConsumeDrmkms::createItems()
{
    driver(top());
    name(top());
    source(top());
    behavior(top());
    kms(top());
    video(top());
    debug(top());
}

void ConsumeDrmkms::driver(Params params)
{
    create_item("", params.constant("driver", "drmkms"));
}

void ConsumeDrmkms::name(Params params)
{
    create_item("", params.string("name").or_null().description("Gives the output a human-readable name"));
}

void ConsumeDrmkms::source(Params params)
{
    create_item("item", params.array("source").description("Channel path to feed from"));
}

void ConsumeDrmkms::behavior(Params params)
{
    params.push("behavior");
    behavior_autostart(params);
    behavior_restart(params);
    behavior_autostartSource(params);
}

void ConsumeDrmkms::behavior_autostart(Params params)
{
    create_item("autostart",
        params.boolean("autostart", "0").description("Whether or not the item is automatically started"));
}

void ConsumeDrmkms::behavior_restart(Params params)
{
    create_item("autorestart",
        params.boolean("restart", "0")
            .description(
                "If set, start the item through a management tool that auto-restarts the item on failure"));
}

void ConsumeDrmkms::behavior_autostartSource(Params params)
{
    create_item("autostart item",
        params.boolean("autostartSource", "0")
            .description(
                "If set, the output will attempt to start the item it feeds from when you start the output, and will attempt to restart the item automatically."));
}

void ConsumeDrmkms::kms(Params params)
{
    params.push("kms");
    kms_active(params);
    kms_audio(params);
    kms_restoreOnDisconnect(params);
    kms_backlight(params);
    kms_refreshRate(params);
    kms_useEDID(params);
    kms_pixelFormat(params);
    kms_connector(params);
    kms_master(params);
    kms_fbconOverride(params);
    kms_x11Override(params);
    kms_pageFlipping(params);
}

void ConsumeDrmkms::kms_active(Params params)
{
    create_item("active", params.string("active").description("Status"));
}

void ConsumeDrmkms::kms_audio(Params params)
{
    // One of on, off, auto and nochange; any other text passes too.
    create_item("audio",
        params.string("audio", "on")
            .description(
                "Audio control for the output, if applicable. Set to 'on' to allow audio over HDMI and DVI-D connections."));
}

void ConsumeDrmkms::kms_restoreOnDisconnect(Params params)
{
    create_item("restore on item disconnect",
        params.boolean("restoreOnDisconnect", "0")
            .description(
                "If enabled, the output driver will restore the output to it's former state when the item it's connected to shuts down."));
}

void ConsumeDrmkms::kms_backlight(Params params)
{
    create_item("backlight level", params.integer("backlight")
                                       .or_null()
                                       .description("If display has a backlight, set it to this level"));
}

void ConsumeDrmkms::kms_refreshRate(Params params)
{
    create_item("refresh rate",
        params.number("refreshRate").or_null().description("Force refresh rate to specified Hz"));
}

void ConsumeDrmkms::kms_useEDID(Params params)
{
    create_item("match known",
        params.boolean("useEDID", "1")
            .description("Try to match modes returned from the monitor via EDID and use them"));
}

void ConsumeDrmkms::kms_pixelFormat(Params params)
{
    // One of rgb555, bgr555, rgb565, bgr565, rgb888 and bgr888; any other text passes too.
    create_item("output format", params.string("pixelFormat", "rgb888").description("Force pixel format"));
}

void ConsumeDrmkms::kms_connector(Params params)
{
    params.push("connector");
    kms_connector_card(params);
    kms_connector_type(params);
    kms_connector_index(params);
    kms_connector_skipUnconnected(params);
}

void ConsumeDrmkms::kms_connector_card(Params params)
{
    params.push("card");
    kms_connector_card_select(params);
    kms_connector_card_using(params);
}

void ConsumeDrmkms::kms_connector_card_select(Params params)
{
    // A number or a text; a number is stored in its text form.
    create_item("device",
        params.string("select", "0")
            .description(
                "What device to use, either by index (/dev/dri/card<N>) or by PCI device (pci:AAAA:BB:CC.D)"));
}

void ConsumeDrmkms::kms_connector_card_using(Params params)
{
    create_item("using device", params.string("using").description("Which device is in use now"));
}

void ConsumeDrmkms::kms_connector_type(Params params)
{
    // One of hdmi, vga, dvi-d and lvds; any other text passes too.
    create_item(
        "connector", params.string("type", "hdmi").description("What kind of connector to use on the card"));
}

void ConsumeDrmkms::kms_connector_index(Params params)
{
    create_item("connector index", params.integer("index").or_null().description(
                                       "Among multiple connectors of the same type, which connector to use"));
}

void ConsumeDrmkms::kms_connector_skipUnconnected(Params params)
{
    create_item("skip unconnected",
        params.boolean("skipUnconnected", "1")
            .description(
                "When counting connectors, skip connectors that do not have anything plugged in to them."));
}

void ConsumeDrmkms::kms_master(Params params)
{
    params.push("master");
    kms_master_enable(params);
    kms_master_using(params);
}

void ConsumeDrmkms::kms_master_enable(Params params)
{
    create_item("drm master",
        params.boolean("enable", "0")
            .description(
                "Operate as DRM/KMS master. You need to clear this option if you don't want the driver to coexist with X-Windows."));
}

void ConsumeDrmkms::kms_master_using(Params params)
{
    create_item(
        "using drm as master", params.boolean("using").description("Whether using the device as DRM master"));
}

void ConsumeDrmkms::kms_fbconOverride(Params params)
{
    params.push("fbconOverride");
    kms_fbconOverride_enable(params);
    kms_fbconOverride_using(params);
}

void ConsumeDrmkms::kms_fbconOverride_enable(Params params)
{
    create_item("fbcon override",
        params.boolean("enable", "0")
            .description(
                "Take over the console if fbdev + fbcon occupy that output. You will lose access to the console on that output until this output is stopped."));
}

void ConsumeDrmkms::kms_fbconOverride_using(Params params)
{
    create_item("using fbcon", params.boolean("using").description("Whether fbcon override is active"));
}

void ConsumeDrmkms::kms_x11Override(Params params)
{
    create_item("x override",
        params.boolean("x11Override", "1")
            .description("If set, driver will not attempt video output while X-Windows is running."));
}

void ConsumeDrmkms::kms_pageFlipping(Params params)
{
    params.push("pageFlipping");
    kms_pageFlipping_enable(params);
    kms_pageFlipping_using(params);
}

void ConsumeDrmkms::kms_pageFlipping_enable(Params params)
{
    create_item("use page flipping",
        params.boolean("enable", "1")
            .description(
                "Use hardware page flipping, if available. Enabling this option will eliminate tearlines and judder, if supported by the hardware."));
}

void ConsumeDrmkms::kms_pageFlipping_using(Params params)
{
    create_item("using page flipping",
        params.boolean("using").description("Whether the driver is using page flipping"));
}

void ConsumeDrmkms::video(Params params)
{
    params.push("video");
    video_forceSize(params);
    video_interlaced(params);
    video_scaleMode(params);
}

void ConsumeDrmkms::video_forceSize(Params params)
{
    params.push("forceSize");
    video_forceSize_width(params);
    video_forceSize_height(params);
}

void ConsumeDrmkms::video_forceSize_width(Params params)
{
    create_item("force width", params.integer("width").or_null().description("Force display width"));
}

void ConsumeDrmkms::video_forceSize_height(Params params)
{
    create_item("force height", params.integer("height").or_null().description("Force display height"));
}

void ConsumeDrmkms::video_interlaced(Params params)
{
    create_item("interlaced",
        params.boolean("interlaced", "0").description("Try to enable interlaced video output."));
}

void ConsumeDrmkms::video_scaleMode(Params params)
{
    // One of none, fullscreen, center and aspect; any other text passes too.
    create_item(
        "scale mode", params.string("scaleMode")
                          .or_null()
                          .description("If display has a scalar (Laptop LVDS panels) set the scale mode"));
}

void ConsumeDrmkms::debug(Params params)
{
    params.push("debug");
    debug_lastError(params);
    debug_lastNotes(params);
}

void ConsumeDrmkms::debug_lastError(Params params)
{
    create_item("last error",
        params.string("lastError").description("Last error encountered when trying to open the device"));
}

void ConsumeDrmkms::debug_lastNotes(Params params)
{
    create_item(
        "last notes", params.string("lastNotes").description("Informational notes about opening the device"));
}
