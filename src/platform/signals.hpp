// The signal state that a program starts with.
#pragma once

// Puts the default actions of the common signals in force and unmasks them, whatever the caller of the
// program had set: drivers inherit the result, and alarm(2) relies on it. 0 on success.
int util_check_and_unmask_common_signals();
