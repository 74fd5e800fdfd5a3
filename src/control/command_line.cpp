#include "control/command_line.hpp"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

#include "control/run_state.hpp"
#include "control/usage.hpp"

namespace {

constexpr std::size_t DOCUMENT_LIMIT = std::size_t{16} << 20;  // far beyond any document, and soon read

// What a scan fills beside the run-wide state.
struct Scan {
    std::string& json_text;
    SettingValues& settings;
    bool is_refused = false;  // which has been said
};

// A file that can't be opened counts as no document at all, and one that can't be read ends there.
void read_document(Scan& scan, const char* name)
{
    scan.json_text.clear();
    Descriptor file;
    int fd = STDIN_FILENO;
    if (std::strcmp(name, "-") != 0) {
        file.reset(::open(name, O_RDONLY | O_CLOEXEC));
        fd = file.get();
    }
    if (fd < 0 || read_to_end(fd, DOCUMENT_LIMIT, scan.json_text) || errno != EFBIG)
        return;
    std::fprintf(stderr_write, "--json-from %s has more than 16 MiB\n", name);
    scan.is_refused = true;
}

// "name=value", cut at the first "=". An empty name is dropped.
void add_setting(SettingValues& settings, const std::string& pair)
{
    const std::size_t equals = pair.find('=');
    std::string key = pair.substr(0, equals);
    if (!key.empty())
        settings.emplace_back(std::move(key), equals == std::string::npos ? "" : pair.substr(equals + 1));
}

// The lowest 32 bits of a number of 64, wherever a long has fewer, too.
int number(const char* text, int base)
{
    return static_cast<int>(std::strtoll(text, nullptr, base));
}

// What a switch does with its value, or without one.
using Take = void (*)(Scan& scan, const char* value);

constexpr struct {
    const char* name;
    bool takes_value;
    Take take;
} SWITCHES[] = {
    {"c", true, [](Scan&, const char* value) { command = value; }},
    {"o", true, [](Scan&, const char* value) { to_what = value; }},
    {"to", true, [](Scan&, const char* value) { to_arg = value; }},
    {"type", true, [](Scan&, const char* value) { var_type = value; }},
    {"set", true, [](Scan& scan, const char* value) { add_setting(scan.settings, value); }},
    {"timeout", true, [](Scan&, const char* value) { per_item_timeout = number(value, 10); }},
    {"kill-timeout", false, [](Scan&, const char*) { kill_timeout_enable = true; }},
    {"x11conflict", true, [](Scan&, const char* value) { x11_conflict_resolution = number(value, 0); }},
    {"force", false, [](Scan&, const char*) { force = true; }},
    {"stop-only", false, [](Scan&, const char*) { stop_only_item = true; }},
    {"use-daemon", false, [](Scan&, const char*) { use_daemon = true; }},
    {"debug", false, [](Scan&, const char*) { debug_logging = true; }},
    {"v", false, [](Scan&, const char*) { verbose = true; }},
    {"name-only", false, [](Scan&, const char*) { name_only = true; }},
    {"desc", false, [](Scan&, const char*) { show_description = true; }},
    {"quicksummary", false, [](Scan&, const char*) { quicksummary = true; }},
    {"ex-quicksummary", false, [](Scan&, const char*) { except_quicksummary = true; }},
    {"no-manifest", false, [](Scan&, const char*) { no_manifest = true; }},
    {"json", false, [](Scan&, const char*) { wants_json = true; }},
    {"json-driver", true, [](Scan&, const char* value) { json_consume_driver = value; }},
    {"json-from", true, read_document},
    {"json-out", true, [](Scan& scan, const char* value) { scan.json_text = value; }},
};

int refuse_with_usage(const char* format, const char* word)
{
    std::fprintf(stderr_write, format, word);
    help();
    return 1;
}

}  // namespace

void choose_tool(const char* program)
{
    const char* slash = std::strrchr(program, '/');
    const char* name = slash ? slash + 1 : program;
    // A wrapper's prefix.
    if (std::strncmp(name, "lt-", 3) == 0)
        name += 3;
    if (const Role* role = find_role(name))
        exec_mode = number_of(*role);
}

int parse_argv(int argc, char** argv, std::string& json_text, SettingValues& settings)
{
    Scan scan{json_text, settings};
    for (int i = 1; i < argc; ++i) {
        if (argv[i][0] != '-')
            return refuse_with_usage("Unexpected non-switch %s\n", argv[i]);
        const char* name = argv[i] + std::strspn(argv[i], "-");
        if (std::strcmp(name, "h") == 0 || std::strcmp(name, "help") == 0) {
            help();
            return 1;
        }
        const auto* found = std::begin(SWITCHES);
        while (found != std::end(SWITCHES) && std::strcmp(name, found->name) != 0)
            ++found;
        if (found == std::end(SWITCHES))
            return refuse_with_usage("Unknown switch %s\n", name);
        if (found->takes_value && ++i == argc) {
            std::fprintf(stderr_write, "--%s parameter required\n", name);
            return 1;
        }
        found->take(scan, found->takes_value ? argv[i] : nullptr);
        if (scan.is_refused)
            return 1;
    }
    return 0;
}
