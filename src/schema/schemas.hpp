// All tables, for programs of the build and for the companion. The tools have packed ones alone.
//
// A row tells a member's path, flat key, null text, description and marks; codings.hpp tells, by its coding,
// what a flat text becomes in the document, what a value in a document becomes as flat text, and which JSON
// the member is.
#pragma once

#include "schema/fields/alsa.hpp"
#include "schema/fields/blackmagic_decklink_sdi.hpp"
#include "schema/fields/channel.hpp"
#include "schema/fields/drmkms.hpp"
#include "schema/fields/fbdev.hpp"
#include "schema/fields/internet_mpeg.hpp"
#include "schema/fields/network_router.hpp"
#include "schema/fields/oss.hpp"
#include "schema/fields/pulse_audio.hpp"
#include "schema/fields/schedule_push.hpp"
#include "schema/fields/serial_router.hpp"
#include "schema/fields/shout_cast.hpp"
#include "schema/fields/trigger_rs232.hpp"
#include "schema/fields/video_passthru.hpp"
#include "schema/fields/x11.hpp"
#include "settings/settings_file.hpp"

struct Schema {
    std::string_view driver;  // "channel" for the document of a channel, which has no driver word
    ItemKind kind;
    std::span<const Row> rows;
};

inline constexpr Schema SCHEMAS[] = {
    {"alsa", ItemKind::OUTPUT, fields::ALSA},
    {"blackmagic_decklink_sdi", ItemKind::OUTPUT, fields::BLACKMAGIC_DECKLINK_SDI},
    {"blackmagic_videohub", ItemKind::ROUTER, fields::BLACKMAGIC_VIDEOHUB},
    {"channel", ItemKind::CHANNEL, fields::CHANNEL},
    {"drmkms", ItemKind::OUTPUT, fields::DRMKMS},
    {"fbdev", ItemKind::OUTPUT, fields::FBDEV},
    {"internet_mpeg", ItemKind::OUTPUT, fields::INTERNET_MPEG},
    {"knox_rs16x16hb", ItemKind::ROUTER, fields::KNOX_RS16X16HB},
    {"knox_rs8x8hb", ItemKind::ROUTER, fields::KNOX_RS8X8HB},
    {"knox_rsii", ItemKind::ROUTER, fields::KNOX_RSII},
    {"oss", ItemKind::OUTPUT, fields::OSS},
    {"pulseaudio", ItemKind::OUTPUT, fields::PULSE_AUDIO},
    {"schedule_push", ItemKind::OUTPUT, fields::SCHEDULE_PUSH},
    {"shoutcast", ItemKind::OUTPUT, fields::SHOUT_CAST},
    {"sierra_video_aspen_hdsdi", ItemKind::ROUTER, fields::SIERRA_VIDEO_ASPEN_HDSDI},
    {"trigger_rs232", ItemKind::INPUT, fields::TRIGGER_RS232},
    {"video_passthru", ItemKind::INPUT, fields::VIDEO_PASSTHRU},
    {"video_passthru_v2", ItemKind::INPUT, fields::VIDEO_PASSTHRU},
    {"x11", ItemKind::OUTPUT, fields::X11},
};

// Calls visit(path, key, row) for every member below a table, with its whole path and flat key: those of the
// elements of an array one after the other, in the order of the table.
template <typename Visitor>
void for_each_member(std::span<const Row> rows, const Visitor& visit, const std::string& path = {},
    const std::string& key_prefix = {})
{
    for (const Row& row : rows) {
        const bool goes_on = !path.empty() && !row.path.empty();
        const std::string place = path + (goes_on ? "." : "") + std::string(row.path);
        const std::string key = key_prefix + std::string(row.key);
        if (row.group.empty())
            visit(place, key, row);
        else if (row.repeat.count == 0)
            for_each_member(row.group, visit, place, key);
        for (int i = 0; i < row.repeat.count; ++i)
            for_each_member(row.group, visit, place + "." + std::to_string(i),
                numbered(key, row.repeat.first_number + i));
    }
}
