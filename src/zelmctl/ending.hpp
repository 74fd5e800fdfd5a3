// How a process ended that is somebody else's child.
#pragma once

#include <optional>

// The status of a held process that has ended, as of waitpid(2), once its parent has taken note, which is
// waited for. None where the kernel doesn't tell.
std::optional<int> ending_of(int process_descriptor, int patience_ms);
