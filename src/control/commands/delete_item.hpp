// The command "delete", of a stopped item.
#pragma once

#include <string>

// Removes the item to_what and its metadir. A metadir that holds more than the known entries stays, with a
// warning. The exit status.
int do_delete();

// The same for the item of that name.
int delete_item(const std::string& item);
