// The directory in which the items of a role lie, each of them a settings file.
#pragma once

#include <fcntl.h>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

#include "control/items/role.hpp"
#include "platform/io.hpp"

constexpr std::size_t SETTINGS_LIMIT = std::size_t{64} << 20;  // far beyond any item, and soon read

constexpr mode_t NEW_SETTINGS_MODE = 0644;  // less the umask

// The settings file of an item in that directory.
std::string settings_path(const std::string& directory, const std::string& item);

// Opens the directory for work relative to it: to be read too, or with O_PATH only to be walked. None with
// errno set otherwise.
Descriptor open_item_directory(const std::string& path, int access = O_RDONLY);

// Whether a regular file of that name is an item of the role: hidden files, backups that end in "~" and what
// can't be a channel are none.
bool names_item(std::string_view name, const Role& role);

// The names of the role's items in an open directory, sorted by their bytes; none with errno set when it
// can't be read to its end. What is no regular file, such as a link, is no item.
std::optional<std::vector<std::string>> read_item_names(DIR* directory, const Role& role);

// Opens a settings file for reading. A neighbour may have put anything under its name: links are not
// followed, and only a file of at most SETTINGS_LIMIT bytes is taken. None with errno set otherwise.
Descriptor open_settings(int directory, const std::string& name);
