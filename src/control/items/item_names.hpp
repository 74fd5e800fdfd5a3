// What create, clone, rename and delete check first of the names that they were given. What is refused has
// been said, on the stream that each message belongs to.
#pragma once

#include <string>

// May a new item be called so? A channel's name has a form of its own, and no item takes the name that
// another item's metadir has or may get.
bool accept_new_name(const std::string& name);

// Is the item of that name there, as a file?
bool find_existing_item(const std::string& name);

// Is it still, when the first look is past? Said on standard error if not.
bool is_still_there(const std::string& name);

bool is_free_name(const std::string& name);

// The checks of to_what and to_arg that clone and rename share.
enum class NewName { REFUSED, UNCHANGED, CHANGED };
NewName check_names();
