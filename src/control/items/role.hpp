// The four roles of the tool, one for each kind of items: all that sets them apart.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "settings/settings_file.hpp"

// What in an item's settings file names its driver. A channel has one driver and no word for it.
enum class DriverSource : std::uint8_t { NOTHING, MARKER_LINE, DRIVER_LINE };

struct Role {
    ItemKind kind;
    DriverSource driver_source;
    const char* tool;          // the name that the tool is called by
    const char* help_title;    // the first lines of its help
    const char* word;          // for one of its items; the respawn manager knows them by it
    const char* directory;     // where its items lie
    const char* program;       // what the driver's program is called, up to the driver's word
    const char* debug_prefix;  // what a debug file is called, up to the driver's word; no channel's has one
};

// In the order of their numbers. Routers answer to another name than their help tells, and their debug files
// are called like those of inputs.
inline constexpr Role ROLES[] = {
    {
        .kind = ItemKind::CHANNEL,
        .driver_source = DriverSource::NOTHING,
        .tool = "zelm_chctl",
        .help_title = "zelm_chctl [options]\nTavorn 4.0 channel control\n",
        .word = "channel",
        .directory = CHANNEL_LIST_PATH,
        .program = "zelm_rendermgr",
        .debug_prefix = "",
    },
    {
        .kind = ItemKind::OUTPUT,
        .driver_source = DriverSource::DRIVER_LINE,
        .tool = "zelm_outctl",
        .help_title = "zelm_outctl [options]\nTavorn 4.0 output control\n",
        .word = "output",
        .directory = OUTPUT_LIST_PATH,
        .program = "zelm_out_",
        .debug_prefix = "output.",
    },
    {
        .kind = ItemKind::INPUT,
        .driver_source = DriverSource::MARKER_LINE,
        .tool = "zelm_inctl",
        .help_title = "zelm_inctl [options]\nTavorn 4.0 input control\n",
        .word = "input",
        .directory = INPUT_LIST_PATH,
        .program = "zelm_",
        .debug_prefix = "input.",
    },
    {
        .kind = ItemKind::ROUTER,
        .driver_source = DriverSource::DRIVER_LINE,
        .tool = "zelm_routectl",
        .help_title = "zelm_routctl [options]\nTavorn 4.0 routing control\n",
        .word = "router",
        .directory = ROUTING_LIST_PATH,
        .program = "zelm_",
        .debug_prefix = "input.",
    },
};

// The number by which a run knows its role, 1 to 4 in the order of the table.
int number_of(const Role& role);

// The role of that number, or of the tool of that name; null for any other.
const Role* find_role(int number);
const Role* find_role(std::string_view tool);

// The name of a driver's program, and the path of its manifest.
std::string driver_program(const Role& role, const std::string& driver);
std::string manifest_path(const Role& role, const std::string& driver);
