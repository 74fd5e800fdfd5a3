// The settings file of an item, read into an info list and written back key by key, and the manifest of
// its driver. zelm-settings(5) tells the format of the file.
#pragma once

#include <string>

#include "control/items/role.hpp"
#include "platform/mediaitem.hpp"
#include "settings/infolist_item.hpp"

// Reads the settings file of the item with that name in itemdir, which must be open. Empties the list
// first. 0, or -1 when there is no such file.
int infolist_load(InfoList& list, const std::string& filename);

// Reads an open settings file of an item of that role, which must be a regular one, into the list. Malformed
// lines are skipped, and a read error ends the file.
void load_infolist_from_file(InfoList& list, const Role& role, int file);

// Copies the value of the key. 0, or -1 with an empty `out` when there is no such key.
int infolist_get(std::string& out, const InfoList& list, const char* key);

// The number of the key "autostart", 0 when there is none.
int infolist_get_autostart(const InfoList& list);

// Adds the descriptions and flags of the manifest to all its keys, and its defaults to those that the
// list lacks. The manifest must outlive the list.
void infolist_fill_from_argslist(InfoList& list, const zelm_config_list& config);
