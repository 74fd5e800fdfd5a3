// What several commands check of the items and names that they were given. What is refused has been said, on
// the stream that each message belongs to.
#pragma once

#include <string>
#include <sys/stat.h>

// May a new item be called so? A channel's name has a form of its own, and no item takes a name that
// another item's metadir, or the file that replaces its settings, has or may get.
bool accept_new_name_or_complain(const std::string& name);

bool is_free_name_or_complain(const std::string& name);

// Is the item there, as a file? Its absence is an error of whoever named it.
bool is_item_or_complain(const std::string& name);

// The same, asked of its settings file right before the work, when its absence is news. `state` describes it.
bool stat_settings_or_complain(const std::string& path, struct stat& state);
bool is_still_item_or_complain(const std::string& name);

bool is_stopped_or_complain(const std::string& name);

// The metadir of a settings file, a path for a path and a name for a name.
bool find_metadir_or_complain(const std::string& file, std::string& metadir);

// The checks of to_what and to_arg that clone and rename share.
enum class NewName { REFUSED, UNCHANGED, CHANGED };
NewName check_names_or_complain();
