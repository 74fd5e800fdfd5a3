// A file that others read while it is written anew.
#pragma once

#include <string>

#include "zelmctl/status.hpp"

// Puts a file of the mode 0644 in the place of the one at that path, or of a link there: whoever opens it
// finds all of the new contents or all of the old ones. What is no file stays. TROUBLE has been said.
Status replace_file(const std::string& path, const std::string& contents);
