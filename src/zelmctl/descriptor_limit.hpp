// How many descriptors the companion may have open: one for each item that runs, and more.
#pragma once

// Raises the soft limit to the hard one.
void raise_descriptor_limit();

// The limit that the caller has set; and puts it back, for what the companion starts.
int descriptor_limit_of_caller();
void restore_descriptor_limit();
