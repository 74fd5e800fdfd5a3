// The directory beside a settings file that holds what the appliance keeps for the item.
#pragma once

#include <string>
#include <sys/stat.h>

#include "platform/io.hpp"

// The metadir of a settings file, a path for a path and a name for a name. False if it can have none.
bool find_metadir(const std::string& file, std::string& metadir);

// The entry of a metadir at which the item's driver binds its socket.
std::string active_socket_path(const std::string& metadir);

// Opens a metadir by its name. None with errno set otherwise; whatever else has that name is none, a link to
// a directory too.
Descriptor open_metadir(int directory, const std::string& name);

// Makes a metadir, unless something has its name. It belongs to the owner of the settings file, whose driver
// has to bind its socket there, as far as the caller may have it so; what can't be had, the driver tells.
void make_metadir(int directory, const std::string& name, const struct stat& settings);

// Removes a metadir with the entries that are known. False with errno set when it can't be, as when it holds
// anything else; what was known is gone all the same.
bool remove_metadir(int directory, const std::string& name);
