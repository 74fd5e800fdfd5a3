#include "control/commands/item_status.hpp"

#include "control/commands/drivers_of_run.hpp"
#include "control/commands/items_of_run.hpp"
#include "control/items/item_names.hpp"
#include "control/run_state.hpp"

int do_status()
{
    if (!is_item_name(to_what)) {
        std::fprintf(stderr_write, "%s", NO_OUTPUT_SPECIFIED_MESSAGE);
        return 1;
    }
    std::string driver = to_what;
    if (role_of_run().driver_source == DriverSource::DRIVER_LINE &&
        !read_driver_word_or_complain(to_what, driver))
        return 1;
    const bool runs = is_item_running(to_what, nullptr) != 0;
    std::fprintf(stdout_write, "Driver %s process is %s\n", driver.c_str(), runs ? "running" : "stopped");
    return runs ? 0 : 1;
}
