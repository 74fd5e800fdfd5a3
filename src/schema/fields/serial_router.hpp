// The members of a serial router's document, in their order. The models differ by name alone.
#pragma once

#include <array>

#include "schema/row.hpp"

namespace fields {

using enum Coding;

constexpr std::array<Row, 9> serial_router(std::string_view driver)
{
    return {{
        {"stay_resident", "stay resident", NULLABLE_TEXT, "",
            "If set (1), the router item stays resident even when not in use. Default off."},
        {"autostart", "autostart", NULLABLE_TEXT, "", "Whether or not the item is automatically started"},
        {"driver", "driver", NULLABLE_CONSTANT, driver, ""},
        {"port", "port", NULLABLE_TEXT, "",
            "Serial communications port associated with the router. Typical values are /dev/ttyS0 (motherboard serial port) and /dev/ttyUSB0 (USB serial adapter). If using the virtual router for testing, this is the full path of the socket."},
        {"serial_port_baud_rate", "serial port baud rate", NULLABLE_TEXT, "",
            "Serial communications port baud rate. Common values are 1200, 2400, 4800, 9600, and 19200."},
        {"inputs", "inputs", NULLABLE_TEXT, "",
            "Number of inputs on the router. If not set, driver default is used"},
        {"outputs", "outputs", NULLABLE_TEXT, "",
            "Number of outputs on the router. If not set, driver default is used"},
        {"route_delay", "route delay", NULLABLE_TEXT, "",
            "Delay between sending route command and retrieving status in milliseconds. This is needed by some models to properly reflect the router's state after changes. Leave blank to automatically use a delay appropriate for the model."},
        {"offline", "offline", NULLABLE_TEXT, "",
            "Set this option to prevent Tavorn from starting this router, to keep it offline."},
    }};
}

inline constexpr auto KNOX_RS16X16HB = serial_router("knox_rs16x16hb");
inline constexpr auto KNOX_RS8X8HB = serial_router("knox_rs8x8hb");
inline constexpr auto KNOX_RSII = serial_router("knox_rsii");

}  // namespace fields
