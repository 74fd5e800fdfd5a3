#include "control/items/output_driver.hpp"

#include "control/items/items.hpp"
#include "control/run_state.hpp"

bool read_driver_word(const std::string& item, std::string& driver)
{
    if (read_driver_field(item, &driver) != 0) {
        std::fprintf(stderr_write, "Unable to read config file\n");
        return false;
    }
    if (role_of_run().kind == ItemKind::OUTPUT && !is_valid_output_driver(driver)) {
        std::fprintf(stderr_write, "WARNING: Unrecognized driver %s\n", driver.c_str());
        driver.clear();
    }
    if (driver.empty())
        std::fprintf(stderr_write, "WARNING: Unable to identify driver\n");
    return true;
}

bool is_x11_output(const std::string& driver)
{
    return driver == "x11";
}

bool is_console_output(const std::string& driver)
{
    return driver == "drmkms" || driver == "fbdev";
}
