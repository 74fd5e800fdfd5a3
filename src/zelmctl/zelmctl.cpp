#include "zelmctl/zelmctl.hpp"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "zelmctl/check/check.hpp"
#include "zelmctl/printable.hpp"
#include "zelmctl/status.hpp"

namespace {

constexpr char USAGE[] = R"(usage: zelmctl SUBCOMMAND ...
       zelmctl --version|--help

  check    say what the control tools pass over in silence

Each subcommand tells more by --help. Exit status: 0 it is so, 1 it is not so, or not for all, 2 the command line is
wrong or something could not be looked at.
)";

constexpr struct {
    std::string_view name;
    Status (*run)(int argc, char** argv);
} SUBCOMMANDS[] = {
    {"check", check},
};

Status run(int argc, char** argv)
{
    const std::string_view word = argc > 1 ? argv[1] : "";
    for (const auto& subcommand : SUBCOMMANDS)
        if (word == subcommand.name)
            return subcommand.run(argc - 1, argv + 1);
    if (word == "--help" || word == "-h") {
        std::fputs(USAGE, stdout);
        return IS_SO;
    }
    if (word == "--version") {
        std::puts("zelmctl " ZELMCTL_VERSION);
        return IS_SO;
    }
    std::fprintf(stderr, "zelmctl: %s, see zelmctl --help\n",
        word.empty() ? "a subcommand is missing" : ("unknown subcommand " + printable(word)).c_str());
    return TROUBLE;
}

}  // namespace

int zelmctl(int argc, char** argv)
{
    const Status status = run(argc, argv);
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
        return status;
    std::fprintf(stderr, "zelmctl: %s\n", std::strerror(errno));
    return TROUBLE;
}
