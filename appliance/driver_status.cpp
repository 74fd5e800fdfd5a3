#include "driver_status.hpp"

namespace {

constexpr DriverStatus ROWS[] = {
    {"", '*', "recent events", "settings read\nsocket bound\nserving"},

    {"x11", '*', "active", "1"},
    {"x11", '*', "xwindow", "56623105"},
    {"x11", '*', "using x11 server", ":0"},
    {"x11", '*', "using xv", "1"},
    {"x11", '*', "using shm", "1"},
    {"x11", '*', "using fullscreen", "0"},
    {"x11", '*', "last error", ""},
    {"x11", '*', "last notes", "opened display :0\nXv port 63, format I420"},

    {"channel", '*', "active", "1"},
    {"channel", '*', "active item", "", "item"},
    {"channel", '*', "active source", "", "item"},
    {"channel", '*', "audio meter", "-18.5,-19.25"},
    {"channel", '*', "realtime status", "ok"},
    {"channel", '*', "eia-608 caption status", "CC1"},
    {"channel", '*', "item lowest level", "", "item"},
    {"channel", '*', "item context id", "7", "item"},
    {"channel", '*', "item playback", "12.5", "item"},
    {"channel", '*', "item state", "3", "item"},
    {"channel", '*', "item audio enabled", "1", "item"},
    {"channel", '*', "item video enabled", "1", "item"},
};

}  // namespace

std::span<const DriverStatus> driver_status()
{
    return ROWS;
}
