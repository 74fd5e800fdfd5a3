#include "control/commands/input_metadata.hpp"

#include <sys/wait.h>
#include <unistd.h>

#include "control/commands/items_of_run.hpp"
#include "control/processes/child_process.hpp"
#include "control/run_state.hpp"

namespace {

constexpr unsigned STARTITEM_LIMIT_S = 5;

}  // namespace

int make_input_metadata_or_complain(const std::string& item)
{
    if (role_of_run().kind != ItemKind::INPUT)
        return 0;
    const pid_t child = ::fork();
    if (child < 0) {
        std::fprintf(stderr_write, "can't make meta\n");
        return 1;
    }
    if (child == 0) {
        keep_standard_descriptors_only();
        execute({"/usr/bin/zelm_startitem", "--file", settings_path(item), "--identify", "--create-meta"});
    }
    ::alarm(STARTITEM_LIMIT_S);
    ::waitpid(child, nullptr, 0);
    return 0;
}
