// The command "status": whether one item's driver runs.
#pragma once

// Tells it of to_what on standard output. 0 when it runs, else 1; also 1 when no item is named or its
// settings can't be read, which is said.
int do_status();
