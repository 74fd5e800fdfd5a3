// How many descriptors the companion may have open: one for each item that runs, and more.
#pragma once

// Raises the soft limit to the hard one.
void raise_descriptor_limit();

// Puts back the limit that the caller has set, for what the companion starts.
void restore_descriptor_limit();
