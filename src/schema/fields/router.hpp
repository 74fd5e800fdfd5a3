// The members of a router's document, in their order. The models differ by name alone.
#pragma once

#include <array>

#include "schema/row.hpp"

namespace fields {

inline constexpr Row ROUTER_START[] = {
    {"stay resident", NULLABLE_TEXT,
        "If set (1), the router item stays resident even when not in use. Default off."},
    {"autostart", NULLABLE_TEXT, "Whether or not the item is automatically started"},
};

inline constexpr Row ROUTER_END[] = {
    {"offline", NULLABLE_TEXT,
        "Set this option to prevent Tavorn from starting this router, to keep it offline."},
};

constexpr std::array<Row, 7> network_router(std::string_view driver)
{
    return {{
        {"", "", ROUTER_START},
        {"driver", NULLABLE_CONSTANT, driver, ""},
        {"ip address", NULLABLE_TEXT, "IP address of router/switcher unit"},
        {"port", NULLABLE_TEXT, "Port number to connect to. If not specified, use default."},
        {"inputs", NULLABLE_TEXT, "Number of inputs on the router. If not set, autodetected from device"},
        {"outputs", NULLABLE_TEXT, "Number of outputs on the router. If not set, autodetected from device"},
        {"", "", ROUTER_END},
    }};
}

constexpr std::array<Row, 8> serial_router(std::string_view driver)
{
    return {{
        {"", "", ROUTER_START},
        {"driver", NULLABLE_CONSTANT, driver, ""},
        {"port", NULLABLE_TEXT,
            "Serial communications port associated with the router. Typical values are /dev/ttyS0 (motherboard serial port) and /dev/ttyUSB0 (USB serial adapter). If using the virtual router for testing, this is the full path of the socket."},
        {"serial port baud rate", NULLABLE_TEXT,
            "Serial communications port baud rate. Common values are 1200, 2400, 4800, 9600, and 19200."},
        {"inputs", NULLABLE_TEXT, "Number of inputs on the router. If not set, driver default is used"},
        {"outputs", NULLABLE_TEXT, "Number of outputs on the router. If not set, driver default is used"},
        {"route delay", NULLABLE_TEXT,
            "Delay between sending route command and retrieving status in milliseconds. This is needed by some models to properly reflect the router's state after changes. Leave blank to automatically use a delay appropriate for the model."},
        {"", "", ROUTER_END},
    }};
}

inline constexpr auto BLACKMAGIC_VIDEOHUB = network_router("blackmagic_videohub");
inline constexpr auto SIERRA_VIDEO_ASPEN_HDSDI = network_router("sierra_video_aspen_hdsdi");
inline constexpr auto KNOX_RS16X16HB = serial_router("knox_rs16x16hb");
inline constexpr auto KNOX_RS8X8HB = serial_router("knox_rs8x8hb");
inline constexpr auto KNOX_RSII = serial_router("knox_rsii");

}  // namespace fields
