// The command "create".
#pragma once

// Makes the new, empty item to_what; an input's file names its driver in its first line, from var_type. The
// exit status.
int do_create();
