// The files that a command line names, of bounded size whatever they are.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/io.hpp"

constexpr std::int64_t INPUT_LIMIT = std::int64_t{4} << 20;  // far beyond any document, and soon read

// Opens a file for reading from its beginning; "-" is standard input. A pipe is read to its end first. None
// with errno set, which is EFBIG for more bytes than the limit.
Descriptor open_input(const std::string& name);

// All that an open file holds; nothing, with errno set, if it can't be read.
std::optional<std::string> contents_of(int file);
