#include "control/usage.hpp"

#include "control/run_state.hpp"

namespace {

// The lines before and after the one that outputs alone have.
constexpr char FIRST_SWITCHES[] =
    "   -c <command>\n"
    "          start              Start, if not started\n"
    "          stop               Stop, if not stopped\n"
    "          list               List\n"
    "          status             Get status\n"
    "          set                Update configuration\n"
    "          create             Create output\n"
    "          delete             Delete output\n"
    "          rename             Rename output\n"
    "   -o <output/channel/etc>   Specify who to act on\n"
    "   --to <name>               What to rename to\n"
    "   --force                   For start/stop, force action\n"
    "   --debug                   Start with debug logging\n"
    "   --no-manifest             Don't read manifest file\n"
    "   --quicksummary            Quicksummary mode\n"
    "   --ex-quicksummary         Everything except quicksummary mode\n"
    "   --desc                    Include descriptions\n"
    "   --timeout <t>             Timeout in t seconds (per item). default 10 seconds. Enter -1 for infinite wait.\n"
    "   --kill-timeout            For 'stop', SIGKILL on timeout\n"
    "   --type <x>                Specify the type. For inputs: trigger-rs232, video-passthru, video-passthru-v2\n"
    "   --name-only               When used with '-c list' list only the names, don't provide details\n"
    "   --stop-only               Stop only the item. If autorestart, the watch daemon will restart it.\n";

constexpr char OUTPUT_SWITCHES[] =
    "   --x11conflict <x>         Only operate on those outputs affected by X11 start/stop\n";

constexpr char MORE_SWITCHES[] =
    "   --set <name>=<value>      With 'set', change a configuration parameter\n"
    "   --use-daemon              Start with the 'daemon' tool\n"
    "   --json                    For -c list, emit list as JSON\n"
    "                               To set json use json as the key.  For exampe\n"
    "                               -c set -o channel1 --set 'json={\"global item 8 audio volume\":100}'\n"
    "   --json-from <filename>    Where to consume json from (file or stdin)\n"
    "                               - is stdin\n"
    "   --json-out <stringified json> The json to consume\n"
    "   --json-driver             The driver the consume json is to use\n";

}  // namespace

void help()
{
    std::fputs(role_of_run().help_title, stderr_write);
    std::fputs(FIRST_SWITCHES, stderr_write);
    if (role_of_run().kind == ItemKind::OUTPUT)
        std::fputs(OUTPUT_SWITCHES, stderr_write);
    std::fputs(MORE_SWITCHES, stderr_write);
}

void create_channel_help()
{
    std::fputs("Channel name must be channel followed by number.\n"
               "Example:\n"
               "   channel1\n"
               "   channel2\n"
               "   channel66\n",
        stderr_write);
}
