// The command line: the name that the tool was called by, and the switches.
#pragma once

#include <string>

#include "schema/consume_json.hpp"

// Sets exec_mode from the program's name, without its directory; any other name leaves it unknown.
void choose_tool(const char* program);

// Scans the switches into the run-wide state. `json_text` gets the document of --json-from or --json-out,
// the last one on the line, and `settings` the pairs of --set. 0, or 1 when the run must end, which has
// been said.
int parse_argv(int argc, char** argv, std::string& json_text, SettingValues& settings);
