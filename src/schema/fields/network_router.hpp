// The members of a network router's document, in their order. The models differ by name alone.
#pragma once

#include <array>

#include "schema/row.hpp"

namespace fields {

using enum Coding;

constexpr std::array<Row, 8> network_router(std::string_view driver)
{
    return {{
        {"stay_resident", "stay resident", NULLABLE_TEXT, "",
            "If set (1), the router item stays resident even when not in use. Default off."},
        {"autostart", "autostart", NULLABLE_TEXT, "", "Whether or not the item is automatically started"},
        {"driver", "driver", NULLABLE_CONSTANT, driver, ""},
        {"ip_address", "ip address", NULLABLE_TEXT, "", "IP address of router/switcher unit"},
        {"port", "port", NULLABLE_TEXT, "", "Port number to connect to. If not specified, use default."},
        {"inputs", "inputs", NULLABLE_TEXT, "",
            "Number of inputs on the router. If not set, autodetected from device"},
        {"outputs", "outputs", NULLABLE_TEXT, "",
            "Number of outputs on the router. If not set, autodetected from device"},
        {"offline", "offline", NULLABLE_TEXT, "",
            "Set this option to prevent Tavorn from starting this router, to keep it offline."},
    }};
}

inline constexpr auto BLACKMAGIC_VIDEOHUB = network_router("blackmagic_videohub");
inline constexpr auto SIERRA_VIDEO_ASPEN_HDSDI = network_router("sierra_video_aspen_hdsdi");

}  // namespace fields
