// The command "clone".
#pragma once

// Makes the new item to_arg as a copy of to_what, without its metadata and owned by the caller. The exit
// status.
int do_clone();
