#include "control/commands/restart_item.hpp"

#include "control/commands/start_item.hpp"
#include "control/commands/stop_item.hpp"

int do_restart_item(const std::string& item)
{
    do_stop_item(item);
    return do_start_item(item);
}
