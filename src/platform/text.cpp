#include "platform/text.hpp"

std::string_view chomp(std::string_view line)
{
    if (!line.empty() && line.back() == '\n')
        line.remove_suffix(1);
    return line;
}

void skiptospc(const char*& p)
{
    while (*p == ' ')
        ++p;
    if (*p == '\0')
        return;
    while (*p != '\0' && *p != ' ')
        ++p;
    while (*p == ' ')
        ++p;
}
