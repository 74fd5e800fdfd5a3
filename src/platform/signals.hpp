// The signals of a program: how it starts, and how one that serves is told to end.
#pragma once

#include "platform/io.hpp"

// Puts the default actions of the common signals in force and unmasks them, whatever the caller of the
// program had set: drivers inherit the result, and alarm(2) relies on it.
void util_check_and_unmask_common_signals();

// Puts the default actions of the others in force. Only programs that are executed may use those, so it is
// done for them alone.
void heed_realtime_signals();

// Makes a write beyond the limit on the size of files fail with EFBIG, as on a full disk, and not end the
// process. A program that the process executes gets the default action again.
void let_oversized_writes_fail();

// Keeps SIGTERM and SIGINT from ending the thread, and gives a descriptor by which they can be waited for and
// read. None with errno set.
Descriptor hold_back_end_signals();
