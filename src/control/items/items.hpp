// Where items live and what they may be called, and the two readers that pick a single line out of a
// settings file without loading it.
#pragma once

#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/stat.h>

#include "platform/io.hpp"

// Copies the item directory of exec_mode into mode_list_path; empty for an unknown mode.
void set_mode_list_path();

// The settings file of an item.
std::string settings_path(const std::string& item);

// Is the settings file there, and a file? Said on standard error if not.
bool stat_settings(const std::string& path, struct stat& state);

// The directory of the items, for work relative to it: to be read too, or with O_PATH only to be walked.
Descriptor open_item_directory(int access = O_RDONLY);

// Brings new names in the directory to disk, so that they outlive a loss of power. What can't be brought
// there is warned of on standard error; the items are there all the same.
void flush_item_directory(int directory);

// Opens a settings file for reading. A neighbour may have put anything under its name: links are not
// followed, and only a file of at most 64 MiB is taken. None with errno set otherwise.
Descriptor open_settings(int directory, const std::string& name);

// The metadir of a settings file, a path for a path and a name for a name. False if it can have none,
// which the second one says on standard error.
bool find_metadir(const std::string& file, std::string& metadir);
bool find_metadir_or_complain(const std::string& file, std::string& metadir);

// "", "all" and "autostart" are no items.
bool is_item_name(const std::string& name);

// "channel1" to "channel999999".
bool is_valid_channel_name(const char* name);

bool is_valid_output_driver(const std::string& driver);

// The driver word of an item, empty if it has none: the last "driver=" line of an output or router, the
// marker line of an input, nothing for a channel. 0, or -1 with a message when the file can't be opened.
int read_driver_field(const std::string& item, std::string* driver);

// The flag "autorestart" of an item. 0, or -1 with a message when the file can't be opened.
int read_driver_daemonize(const std::string& item, bool& autorestart);

// The manifest of the driver; empty for an unknown mode.
std::string item_argslist_path(const std::string& driver);

// Fills itemlist with the items of mode_list_path, sorted by bytes. 0, or 1 when the directory can't be
// opened or, which is said on standard error, not be read to its end.
int build_itemlist();

// Moves over one word and the spaces behind it, onto the next word or the end.
void skiptospc(const char*& p);
