// The members of a serial router's document, in their order. The models differ by name alone.
#pragma once

#include <array>

#include "schema/field.hpp"

constexpr std::array<Field, 9> serial_router_fields(const char* driver)
{
    return {{
        {"stay_resident", "stay resident", Coding::NULLABLE_TEXT, "",
            "If set (1), the router item stays resident even when not in use. Default off."},
        {"autostart", "autostart", Coding::NULLABLE_TEXT, "",
            "Whether or not the item is automatically started"},
        {"driver", "driver", Coding::CONSTANT, driver, ""},
        {"port", "port", Coding::NULLABLE_TEXT, "",
            "Serial communications port associated with the router. Typical values are /dev/ttyS0 (motherboard serial port) and /dev/ttyUSB0 (USB serial adapter). If using the virtual router for testing, this is the full path of the socket."},
        {"serial_port_baud_rate", "serial port baud rate", Coding::NULLABLE_TEXT, "",
            "Serial communications port baud rate. Common values are 1200, 2400, 4800, 9600, and 19200."},
        {"inputs", "inputs", Coding::NULLABLE_TEXT, "",
            "Number of inputs on the router. If not set, driver default is used"},
        {"outputs", "outputs", Coding::NULLABLE_TEXT, "",
            "Number of outputs on the router. If not set, driver default is used"},
        {"route_delay", "route delay", Coding::NULLABLE_TEXT, "",
            "Delay between sending route command and retrieving status in milliseconds. This is needed by some models to properly reflect the router's state after changes. Leave blank to automatically use a delay appropriate for the model."},
        {"offline", "offline", Coding::NULLABLE_TEXT, "",
            "Set this option to prevent Tavorn from starting this router, to keep it offline."},
    }};
}

inline constexpr auto KNOX_RS16X16HB_FIELDS = serial_router_fields("knox_rs16x16hb");
inline constexpr auto KNOX_RS8X8HB_FIELDS = serial_router_fields("knox_rs8x8hb");
inline constexpr auto KNOX_RSII_FIELDS = serial_router_fields("knox_rsii");
