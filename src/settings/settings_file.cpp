#include "settings/settings_file.hpp"

#include <algorithm>
#include <strings.h>

namespace {

bool equals_ignoring_case(std::string_view one, std::string_view other)
{
    return one.size() == other.size() && ::strncasecmp(one.data(), other.data(), one.size()) == 0;
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
