// The command "list": settings, manifest, process state, uptime and live report of each item side by side.
#pragma once

#include <memory>

#include "schema/emit_json.hpp"

// Lists, and prints the document when JSON is wanted: an empty one when no item is listed. Returns what
// do_list does.
int run_list();

// Gathers all items, or the one named by to_what, and then prints them on standard output, or hands them to
// the emitter when JSON is wanted. `emitter` comes in null and is made for the driver of the first listed
// item; it stays null when no item is listed. 0, or 1 when the directory can't be listed.
int do_list(std::shared_ptr<EmitJson>& emitter);
