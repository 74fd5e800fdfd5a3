// What the settings files of all items have in common: where they lie, and lines that are no settings.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string_view>

// The kinds of items, numbered as the tools number their roles.
enum class ItemKind : std::uint8_t { CHANNEL = 1, OUTPUT, INPUT, ROUTER };

inline constexpr char CHANNEL_LIST_PATH[] = "/mnt/main/tv/rendermgr";
inline constexpr char OUTPUT_LIST_PATH[] = "/mnt/main/tv/outputs";
inline constexpr char INPUT_LIST_PATH[] = "/mnt/main/tv/inputs";
inline constexpr char ROUTING_LIST_PATH[] = "/mnt/main/tv/routing";

// What "create --type" takes and the first line of an input's file names, and the driver that it means.
struct InputType {
    const char* marker;
    const char* driver;
};
inline constexpr InputType INPUT_TYPES[] = {
    {"video-passthru", "video_passthru"},
    {"video-passthru-v2", "video_passthru_v2"},
    {"trigger-rs232", "trigger_rs232"},
};
// The type with that marker, compared without regard to case, or null.
const InputType* find_input_type(std::string_view marker);

// What a first line that begins with "#", or with "#!", names.
std::string_view marker_of(std::string_view line);

// Live commands are never stored, and a file that holds one loses it.
inline bool is_live_command(std::string_view key)
{
    return key.starts_with('+') || key.starts_with('-') || key.starts_with('&');
}

inline bool is_stored(std::string_view key)
{
    return !key.empty() && !is_live_command(key);
}

// Writes one key, a line for each line of the value; nothing for an empty value. The stream's error
// indicator tells whether it worked.
void fprintf_value(std::FILE* stream, std::string_view key, std::string_view value);
