// The type of a media file, from its metadata.
#pragma once

#include <string>

// The metadata entry "file type" of the file as a whole, empty when it has none or can't be read.
std::string read_file_type(const std::string& path);
