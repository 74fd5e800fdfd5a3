// The items of the run's role, in its directory: what the commands ask of them by their names alone.
#pragma once

#include <string>

#include "platform/io.hpp"

// Copies the item directory of exec_mode into mode_list_path; empty for an unknown mode.
void set_mode_list_path();

// Fills itemlist with the items of mode_list_path, sorted by bytes. 0, or 1 when the directory can't be
// opened or, which is said on standard error, not be read to its end.
int build_itemlist();

// The settings file of an item.
std::string settings_path(const std::string& item);

// The driver word of an item, empty if it has none: the last "driver=" line of an output or router, the
// marker line of an input, nothing for a channel. 0, or -1 with a message when the file can't be opened.
int read_driver_field(const std::string& item, std::string* driver);

// The flag "autorestart" of an item. 0, or -1 with a message when the file can't be opened.
int read_driver_daemonize(const std::string& item, bool& autorestart);

// The driver word of an item that is about to be started, stopped or asked for its status. Warns of an
// output's that is not known, which then counts as empty, and of an empty one. False when the settings can't
// be read, which has been said.
bool read_driver_word_or_complain(const std::string& item, std::string& driver);

// Brings new names in the directory to disk, so that they outlive a loss of power. What can't be brought
// there is warned of on standard error; the items are there all the same.
void flush_items_or_complain(int directory);
