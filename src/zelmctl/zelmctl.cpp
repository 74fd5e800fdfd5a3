#include "zelmctl/zelmctl.hpp"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "platform/io.hpp"
#include "platform/signals.hpp"
#include "zelmctl/act.hpp"
#include "zelmctl/appliance/apply.hpp"
#include "zelmctl/appliance/save.hpp"
#include "zelmctl/check/check.hpp"
#include "zelmctl/descriptor_limit.hpp"
#include "zelmctl/explain.hpp"
#include "zelmctl/get.hpp"
#include "zelmctl/metrics.hpp"
#include "zelmctl/options.hpp"
#include "zelmctl/wait.hpp"
#include "zelmctl/watch.hpp"

namespace {

constexpr char HELP[] = R"(usage: zelmctl SUBCOMMAND ...
       zelmctl --version|--help

  get      tell how items run, with their documents
  wait     wait until items run, have stopped or answer
  start    start items, and wait until they run
  stop     stop items, and wait until they have ended
  restart  both
  watch    tell of each change
  metrics  tell Prometheus how items run
  save     write what is stored as one file
  plan     say what apply would do
  apply    bring the appliance to what a file says
  check    say what the control tools pass over in silence
  explain  say what the members of a document are

Each subcommand tells more by --help. Exit status: 0 it is so, 1 it is not so, or not for all, 2 the command line is
wrong or something could not be looked at.
)";

const Subcommand* const SUBCOMMANDS[] = {
    &GET, &WAIT, &START_ITEMS, &STOP_ITEMS, &RESTART_ITEMS, &WATCH, &METRICS, &SAVE, &PLAN, &APPLY, &EXPLAIN};

Status run(const Subcommand& subcommand, int argc, char** argv)
{
    Status status = IS_SO;
    const auto options = read_options(subcommand, argc, argv, status);
    return options ? subcommand.run(*options) : status;
}

Status run(int argc, char** argv)
{
    const std::string_view word = argc > 1 ? argv[1] : "";
    for (const Subcommand* subcommand : SUBCOMMANDS)
        if (word == subcommand->name)
            return run(*subcommand, argc - 2, argv + 2);
    if (word == "check")
        return check(argc - 1, argv + 1);
    if (word == "--help" || word == "-h") {
        std::fputs(HELP, stdout);
        return IS_SO;
    }
    if (word == "--version") {
        std::puts("zelmctl " ZELMCTL_VERSION);
        return IS_SO;
    }
    const std::string fault =
        word.empty() ? "a subcommand is missing" : "unknown subcommand " + std::string(word);
    return complain(fault + "; see zelmctl --help");
}

}  // namespace

int zelmctl(int argc, char** argv)
{
    open_standard_descriptors();
    util_check_and_unmask_common_signals();
    let_oversized_writes_fail();
    raise_descriptor_limit();
    const Status status = run(argc, argv);
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
        return status;
    std::fprintf(stderr, "zelmctl: %s\n", std::strerror(errno));
    return TROUBLE;
}
