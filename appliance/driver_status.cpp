#include "driver_status.hpp"

#include <string_view>

namespace {

struct Row {
    std::string_view drivers;  // driver words, one blank between two; empty for every driver
    std::string_view key;
    std::string_view value;
};

constexpr std::string_view ROUTERS =
    "blackmagic_videohub sierra_video_aspen_hdsdi knox_rs16x16hb knox_rs8x8hb knox_rsii";
constexpr std::string_view NETWORK_ROUTERS = "blackmagic_videohub sierra_video_aspen_hdsdi";
constexpr std::string_view SERIAL_ROUTERS = "knox_rs16x16hb knox_rs8x8hb knox_rsii";
constexpr std::string_view PASSTHROUGHS = "video_passthru video_passthru_v2";

constexpr Row ROWS[] = {
    {"", "recent events", "settings read\nsocket bound\nserving"},

    {"x11", "active", "1"},
    {"x11", "xwindow", "56623105"},
    {"x11", "using x11 server", ":0"},
    {"x11", "using xv", "1"},
    {"x11", "using shm", "1"},
    {"x11", "using fullscreen", "0"},
    {"x11", "last error", ""},
    {"x11", "last notes", "opened display :0\nXv port 63, format I420"},

    {"drmkms", "active", "1920x1080 at 60 Hz"},
    {"drmkms", "using device", "/dev/dri/card0"},
    {"drmkms", "using drm as master", "1"},
    {"drmkms", "using fbcon", "0"},
    {"drmkms", "using page flipping", "1"},
    {"drmkms", "last error", ""},
    {"drmkms", "last notes", "opened /dev/dri/card0\nconnector HDMI-A-1"},

    {"fbdev", "active", "1"},
    {"fbdev", "using device", "/dev/fb0"},
    {"fbdev", "using fbcon", "0"},
    {"fbdev", "last error", ""},
    {"fbdev", "last notes", "opened /dev/fb0, 1280x720 rgb565"},

    {"alsa oss pulseaudio", "active", "1"},
    {"alsa oss pulseaudio", "audio last error", ""},
    {"alsa", "active mixer controls", "1"},
    {"alsa", "alsa buffer size", "8192"},
    {"alsa", "audio last notes", "opened default at 48000 Hz"},
    {"oss", "oss buffer size", "4096"},
    {"pulseaudio", "audio last notes", "connected to the local server"},

    {"blackmagic_decklink_sdi", "active", "1"},
    {"blackmagic_decklink_sdi", "using device", "DeckLink Studio"},
    {"blackmagic_decklink_sdi", "eia-608 caption status", "CC1"},
    {"blackmagic_decklink_sdi", "last error", ""},
    {"blackmagic_decklink_sdi", "last notes", "video mode 1080i59.94"},

    {"schedule_push", "active", "1"},
    {"schedule_push", "post status", "200 OK"},
    {"schedule_push", "ftp1 status", "transferred"},
    {"schedule_push", "ftp2 status", "off"},

    {"internet_mpeg shoutcast", "active", "1"},
    {"internet_mpeg", "eia-608 caption status", "CC1"},
    {"internet_mpeg", "enc0, audio, active", "mp2, 48000 Hz"},
    {"internet_mpeg", "enc0, audio, last error", ""},
    {"internet_mpeg", "enc0, video, active", "mpeg-2, 720x480"},
    {"internet_mpeg", "enc0, video, debug status", "quantizer 4"},
    {"internet_mpeg", "enc0, ts, active", "1"},
    {"internet_mpeg", "enc0, ts, active mux status", "PID 256 video\nPID 257 audio"},
    {"internet_mpeg", "enc0, ts, hls active", "0"},
    {"internet_mpeg", "enc0, iptv, active", "1316 bytes sent"},
    {"internet_mpeg", "enc0, asi, active", "0"},
    {"internet_mpeg", "enc0, asi1, active", "0"},
    {"internet_mpeg", "enc1, audio, active", "0"},
    {"internet_mpeg", "enc1, video, active", "0"},
    {"shoutcast", "enc0, active", "mp3, 44100 Hz"},
    {"shoutcast", "enc0, last error", ""},
    {"shoutcast", "enc0, last notes", "1 listener"},
    {"shoutcast", "enc1, active", "0"},

    {ROUTERS, "active", "1"},
    {ROUTERS, "routes", "output 1 from input 1\noutput 2 from input 4"},
    {ROUTERS, "last error", ""},
    {NETWORK_ROUTERS, "connection", "established"},
    {SERIAL_ROUTERS, "serial port status", "open, 8 data bits, no parity"},

    {"trigger_rs232", "active", "1"},
    {"trigger_rs232", "line status", "RI 0\nCTS 1\nDSR 1\nDCD 0"},

    {PASSTHROUGHS, "active", "720x480 30000/1001i"},
    {PASSTHROUGHS, "active source", "720x480 NTSC"},
    {PASSTHROUGHS, "last error", ""},
    {PASSTHROUGHS, "last notes", "test picture"},
    {PASSTHROUGHS, "eia-608 caption status", "CC1"},
    {PASSTHROUGHS, "video flag status, no signal", "0"},
    {PASSTHROUGHS, "video flag status, black picture", "0"},
    {PASSTHROUGHS, "video flag status, blue picture", "0"},
    {PASSTHROUGHS, "video flag status, no audio", "1"},
    {PASSTHROUGHS, "video flag status, still picture", "0"},
    {PASSTHROUGHS, "video flag status, no audio, active level", "-61.50"},

    {"channel", "active", "1"},
    {"channel", "audio meter", "-18.5,-19.25"},
    {"channel", "realtime status", "ok"},
    {"channel", "eia-608 caption status", "CC1"},
    {"channel", "cea-708 caption status", "service 1"},
    {"channel", "scte-20 status", "none"},
    {"channel", "scte-35 status", "splice_null"},
    {"channel", "pid status", "video 256, audio 257"},
    {"channel", "source gop status", "IBBP, closed"},
    {"channel", "source timestamp status", "PTS 1126125"},
};

bool stands_among(std::string_view word, std::string_view words)
{
    while (!words.empty()) {
        const std::size_t blank = words.find(' ');
        if (words.substr(0, blank) == word)
            return true;
        words.remove_prefix(blank == std::string_view::npos ? words.size() : blank + 1);
    }
    return false;
}

// What a renderer tells of each of its regions that has an item.
constexpr std::string_view REGIONS[] = {"item", "urgent", "background music", "eas scroll text", "eas av",
    "global item 1", "global item 2", "global item 3", "global item 4", "global item 5", "global item 6",
    "global item 7", "global item 8"};

void add_region(std::vector<StatusEntry>& entries, const std::string& region, const std::string& item)
{
    entries.push_back({region + " lowest level", item});
    entries.push_back({region + " context id", "7"});
    entries.push_back({region + " playback", "12.5"});
    entries.push_back({region + " state", "3"});
    entries.push_back({region + " audio enabled", "1"});
    entries.push_back({region + " video enabled", "1"});
}

void add_channel(std::vector<StatusEntry>& entries, const ItemSettings& settings)
{
    for (const std::string_view region : REGIONS)
        if (const std::string item(setting_text(settings, region)); !item.empty())
            add_region(entries, std::string(region), item);
    const std::string_view main_layer = setting_text(settings, "main layer");
    entries.push_back({"main layer", std::string(main_layer.empty() ? "item" : main_layer)});
    if (const std::string item(setting_text(settings, "item")); !item.empty()) {
        entries.push_back({"active item", item});
        entries.push_back({"active source", item});
    }
}

}  // namespace

std::vector<StatusEntry> driver_status(const DriverState& state)
{
    std::vector<StatusEntry> entries;
    for (const Row& row : ROWS)
        if (row.drivers.empty() || stands_among(state.driver, row.drivers))
            entries.push_back({std::string(row.key), std::string(row.value)});
    if (state.driver == "channel")
        add_channel(entries, state.settings);
    return entries;
}
