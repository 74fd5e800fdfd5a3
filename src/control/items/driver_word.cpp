#include "control/items/driver_word.hpp"

#include <cstdlib>

#include "platform/io.hpp"

namespace {

// The value of the last line of that key. The key comes with its "=".
std::string last_value(int file, std::string_view key)
{
    std::string value;
    LineReader lines(file);
    for (std::string_view line; lines.next(line);)
        if (line.starts_with(key))
            value = line.substr(key.size());
    return value;
}

DriverWord marked_driver(int file)
{
    LineReader lines(file);
    std::string_view line;
    if (!lines.next(line) || !line.starts_with('#'))
        return {};
    const std::string_view marker = marker_of(line);
    if (const InputType* type = find_input_type(marker))
        return {type->driver, {}};
    return {"", std::string(marker)};
}

}  // namespace

DriverWord read_driver(int file, const Role& role)
{
    switch (role.driver_source) {
    case DriverSource::NOTHING: break;
    case DriverSource::MARKER_LINE: return marked_driver(file);
    case DriverSource::DRIVER_LINE: return {last_value(file, "driver="), {}};
    }
    return {};
}

bool read_autorestart(int file)
{
    return std::strtol(last_value(file, "autorestart=").c_str(), nullptr, 10) > 0;
}
