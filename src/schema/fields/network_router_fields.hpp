// The members of a network router's document, in their order. The models differ by name alone.
#pragma once

#include <array>

#include "schema/field.hpp"

constexpr std::array<Field, 8> network_router_fields(const char* driver)
{
    return {{
        {"stay_resident", "stay resident", Coding::NULLABLE_TEXT, "",
            "If set (1), the router item stays resident even when not in use. Default off."},
        {"autostart", "autostart", Coding::NULLABLE_TEXT, "",
            "Whether or not the item is automatically started"},
        {"driver", "driver", Coding::CONSTANT, driver, ""},
        {"ip_address", "ip address", Coding::NULLABLE_TEXT, "", "IP address of router/switcher unit"},
        {"port", "port", Coding::NULLABLE_TEXT, "",
            "Port number to connect to. If not specified, use default."},
        {"inputs", "inputs", Coding::NULLABLE_TEXT, "",
            "Number of inputs on the router. If not set, autodetected from device"},
        {"outputs", "outputs", Coding::NULLABLE_TEXT, "",
            "Number of outputs on the router. If not set, autodetected from device"},
        {"offline", "offline", Coding::NULLABLE_TEXT, "",
            "Set this option to prevent Tavorn from starting this router, to keep it offline."},
    }};
}

inline constexpr auto BLACKMAGIC_VIDEOHUB_FIELDS = network_router_fields("blackmagic_videohub");
inline constexpr auto SIERRA_VIDEO_ASPEN_HDSDI_FIELDS = network_router_fields("sierra_video_aspen_hdsdi");
