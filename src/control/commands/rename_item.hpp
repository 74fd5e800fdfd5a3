// The command "rename", of a stopped item.
#pragma once

// Moves the item to_what and its metadir to to_arg. A metadir that can't be moved is only warned of. The exit
// status.
int do_rename();
