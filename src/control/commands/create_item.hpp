// The commands "create" and "clone". They take the item from to_what and the new name from to_arg, and their
// result is the exit status.
#pragma once

// Makes a new, empty item; an input's file names its driver in its first line, from var_type.
int do_create();

// Makes a new item as a copy of an existing one, without its metadata and owned by the caller.
int do_clone();
