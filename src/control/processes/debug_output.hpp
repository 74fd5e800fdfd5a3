// Where a driver's output goes on request.
#pragma once

#include <string>
#include <sys/stat.h>

#include "control/items/role.hpp"
#include "platform/io.hpp"

// The file that takes the output of an item's driver.
std::string debug_output_path(const Role& role, const std::string& driver, const std::string& item);

// Makes the directory of these files, if it isn't there.
void make_debug_directory();

// Opens the file for appending, as the caller and in favour of the owner of the settings. None when it can't
// be opened, and when it could be somebody else's trap: a link or anything but a regular file, a file of a
// third user, or a directory that is a link of anybody but root and the caller.
Descriptor open_debug_output(const std::string& path, const struct stat& settings);
