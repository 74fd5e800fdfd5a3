// The state of the one run that a process makes: what the command line said, and what the commands share.
// The scan of the command line fills it, and the command routines read it.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "control/items/role.hpp"
#include "platform/io.hpp"

// Which of the four tools this is, from the program's name: 0 unknown, 1 channels, 2 outputs, 3 inputs, 4
// routers.
extern int exec_mode;

// The role that exec_mode tells. Without one the process aborts.
const Role& role_of_run();

extern std::string command;              // -c
extern std::string to_what;              // -o: an item's name or a pseudo-name
extern std::string to_arg;               // --to: the new name of rename and clone
extern std::string var_type;             // --type
extern std::string json_consume_driver;  // --json-driver

extern bool force;                // --force
extern bool verbose;              // -v
extern bool debug_logging;        // --debug
extern bool use_daemon;           // --use-daemon
extern bool stop_only_item;       // --stop-only
extern bool kill_timeout_enable;  // --kill-timeout
extern bool no_manifest;          // --no-manifest
extern bool quicksummary;         // --quicksummary
extern bool except_quicksummary;  // --ex-quicksummary
extern bool show_description;     // --desc
extern bool name_only;            // --name-only
extern bool wants_json;           // --json

extern int per_item_timeout;         // --timeout, in seconds; 0 or less waits for ever
extern std::uint64_t run_timeout;    // of a run on behalf of another program, in place of that; 0 is none
extern std::uint64_t next_timeout;   // both on the clock of monotonic_clock_us(); 0 is no limit
extern int x11_conflict_resolution;  // --x11conflict: -1 none, 0 X11 goes down, above 0 X11 comes up

extern std::string mode_list_path;         // the directory of the items of this mode
extern Directory itemdir;                  // that directory, once build_itemlist() has opened it
extern std::vector<std::string> itemlist;  // the names in it, sorted by their bytes

extern std::FILE* stdout_write;
extern std::FILE* stderr_write;

// What a command says that was given no item.
extern const char* const NO_OUTPUT_SPECIFIED_MESSAGE;

// Sets next_timeout to run_timeout, or to per_item_timeout from now, or to no limit.
void reset_timeout();
