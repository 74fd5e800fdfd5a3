#include "control/items/output_drivers.hpp"

#include <algorithm>
#include <iterator>

namespace {

constexpr const char* OUTPUT_DRIVERS[] = {
    "fbdev",
    "x11",
    "drmkms",
    "shoutcast",
    "oss",
    "alsa",
    "pulseaudio",
    "internet_mpeg",
    "blackmagic_decklink_sdi",
    "newtek_ndi",
    "schedule_push",
};

}  // namespace

bool is_valid_output_driver(const std::string& driver)
{
    return std::find(std::begin(OUTPUT_DRIVERS), std::end(OUTPUT_DRIVERS), driver) !=
           std::end(OUTPUT_DRIVERS);
}

bool is_x11_output(const std::string& driver)
{
    return driver == "x11";
}

bool is_console_output(const std::string& driver)
{
    return driver == "drmkms" || driver == "fbdev";
}
