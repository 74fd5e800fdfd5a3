// The command "create".
#pragma once

#include <string>

// Makes the new, empty item to_what; an input's file names its driver in its first line, from var_type. The
// exit status.
int do_create();

// Makes the new item of that name, with these contents from the first moment on, in the directory of the
// run's role. Neither is that flushed, nor are an input's metadata made. What went wrong has been said.
bool create_item_or_complain(const std::string& name, const std::string& text);
