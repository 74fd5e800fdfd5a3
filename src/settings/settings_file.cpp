#include "settings/settings_file.hpp"

#include <algorithm>
#include <strings.h>

namespace {

bool equals_ignoring_case(std::string_view one, std::string_view other)
{
    return one.size() == other.size() && ::strncasecmp(one.data(), other.data(), one.size()) == 0;
}

void write_line(std::FILE* stream, std::string_view key, std::string_view text)
{
    std::fwrite(key.data(), 1, key.size(), stream);
    std::fputc('=', stream);
    std::fwrite(text.data(), 1, text.size(), stream);
    std::fputc('\n', stream);
}

}  // namespace

const InputType* find_input_type(std::string_view marker)
{
    for (const InputType& type : INPUT_TYPES)
        if (equals_ignoring_case(marker, type.marker))
            return &type;
    return nullptr;
}

std::string_view marker_of(std::string_view line)
{
    line.remove_prefix(line.starts_with("#!") ? 2 : 1);
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    return line;
}

void fprintf_value(std::FILE* stream, std::string_view key, std::string_view value)
{
    while (!value.empty()) {
        const std::size_t end = value.find('\n');
        write_line(stream, key, value.substr(0, end));
        value.remove_prefix(end == std::string_view::npos ? value.size() : end + 1);
        // A value that ends in a line feed has one more line, an empty one.
        if (value.empty() && end != std::string_view::npos)
            write_line(stream, key, "");
    }
}
