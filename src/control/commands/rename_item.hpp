// The commands "rename" and "delete", of a stopped item. They take it from to_what and the new name from
// to_arg, and their result is the exit status.
#pragma once

// Moves the item and its metadir. A metadir that can't be moved is only warned of.
int do_rename();

// Removes the item and its metadir. A metadir that holds more than the known entries stays, with a warning.
int do_delete();
