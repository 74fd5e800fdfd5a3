// The files that a command line names, of bounded size whatever they are.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/io.hpp"

constexpr std::int64_t INPUT_LIMIT = std::int64_t{4} << 20;  // far beyond any document, and soon read

// Opens a regular file for reading from its beginning, without waiting for anything. "-" is standard input,
// which may be a pipe too, and is then read to its end first. None with errno set: EFBIG for more bytes than
// the limit, EISDIR for a directory, EINVAL for what else is no file.
Descriptor open_input(const std::string& name, std::int64_t limit = INPUT_LIMIT);

// All that an open file holds; nothing, with errno set, if it can't be read.
std::optional<std::string> contents_of(int file, std::int64_t limit = INPUT_LIMIT);

// Why either failed, in words.
const char* reason_of_input();
