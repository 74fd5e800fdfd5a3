#include "control/items/output_drivers.hpp"

#include "schema/driver_words.hpp"

bool is_valid_output_driver(const std::string& driver)
{
    return is_driver_word(driver, ItemKind::OUTPUT);
}

bool is_x11_output(const std::string& driver)
{
    return driver == "x11";
}

bool is_console_output(const std::string& driver)
{
    return driver == "drmkms" || driver == "fbdev";
}
