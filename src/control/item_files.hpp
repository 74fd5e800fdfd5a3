// The commands that change the file tree: create, clone, rename, delete. They take the item from to_what
// and the new name from to_arg, and their result is the exit status.
#pragma once

// Makes a new, empty item; an input's file names its driver in its first line, from var_type.
int do_create();

// Makes a new item as a copy of an existing one, without its metadata and owned by the caller.
int do_clone();

// Moves a stopped item and its metadir. A metadir that can't be moved is only warned of.
int do_rename();

// Removes a stopped item and its metadir. A metadir that holds more than the known entries stays, with a
// warning.
int do_delete();
