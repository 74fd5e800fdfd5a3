#include "zelmctl/check/check.hpp"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <optional>

#include "zelmctl/appliance/appliance_file.hpp"
#include "zelmctl/check/check_document.hpp"
#include "zelmctl/check/check_manifest.hpp"
#include "zelmctl/check/check_settings.hpp"
#include "zelmctl/check/driver/check_driver.hpp"
#include "zelmctl/check/input_file.hpp"
#include "zelmctl/printable.hpp"
#include "zelmctl/selection.hpp"
#include "zelmctl/status.hpp"

namespace {

constexpr char USAGE[] = R"(usage: zelmctl check [--json] document --driver WORD FILE...
       zelmctl check [--json] settings [--kind channel|output|input|router] FILE...
       zelmctl check [--json] manifest|appliance FILE...
       zelmctl check driver ... -- PROGRAM [ARGUMENT...]

Says what the tools pass over in silence: of a JSON document for "set" of that driver ("channel" for a
channel's), of an item's settings file, and of a driver's manifest; and what "apply" would refuse of a file
of the appliance. FILE may be "-", standard input. Of a driver: what of zelm-packets(5) it doesn't do;
"zelmctl check driver --help" tells more.

  --driver WORD  the driver whose document it is
  --kind KIND    the kind of the item, which otherwise follows from the file's directory
  --json         print the findings as one JSON array

Exit status: 0 nothing found, 1 something found, 2 wrong usage or unreadable input.
)";

struct CommandLine {
    std::string subject;
    std::optional<std::string> driver;
    std::optional<std::string> kind;
    bool wants_json = false;
    std::vector<std::string> files;
};

// By the name of the directory alone, so that copies elsewhere are known as well.
const Role* role_of_file(const std::string& file)
{
    std::error_code error;
    const std::filesystem::path path = std::filesystem::absolute(file, error).lexically_normal();
    for (const Role& role : ROLES)
        if (file != "-" && path.parent_path().filename() == std::filesystem::path(role.directory).filename())
            return &role;
    return nullptr;
}

// Keys that no document knows are no finding, and told all the same.
void check_appliance(const std::string& file, const std::string& text, Findings& findings)
{
    Findings unknown;
    read_appliance(text, findings, unknown);
    for (const Finding& finding : unknown.all())
        std::fputs(as_line(file, finding).c_str(), stderr);
}

// Whether the file could be checked; if not, that has been said.
bool check_file(const CommandLine& line, const std::string& file, Findings& findings)
{
    const Role* const role = line.kind ? role_called(*line.kind) : role_of_file(file);
    if (line.subject == "settings" && !role) {
        std::fprintf(
            stderr, "%s: no directory of items; which kind is it? --kind tells\n", printable(file).c_str());
        return false;
    }
    const std::int64_t limit = line.subject == "appliance" ? APPLIANCE_LIMIT : INPUT_LIMIT;
    const Descriptor input = open_input(file, limit);
    bool is_read = static_cast<bool>(input);
    if (is_read && line.subject == "settings") {
        is_read = check_settings(input.get(), role->kind, findings);
    } else if (is_read && line.subject == "manifest") {
        is_read = check_manifest(input.get(), findings);
    } else if (is_read) {
        const auto text = contents_of(input.get(), limit);
        is_read = text.has_value();
        if (text && line.subject == "appliance")
            check_appliance(file, *text, findings);
        else if (text)
            check_document(*line.driver, *text, findings);
    }
    if (!is_read)
        std::fprintf(stderr, "%s: %s\n", printable(file).c_str(), reason_of_input());
    return is_read;
}

Status check_files(const CommandLine& line)
{
    Status status = IS_SO;
    json11::Json::array array;
    for (const std::string& file : line.files) {
        Findings findings;
        if (!check_file(line, file, findings))
            status = TROUBLE;
        for (const Finding& finding : findings.all()) {
            status = std::max(status, IS_NOT_SO);
            if (line.wants_json)
                array.push_back(as_json(file, finding));
            else
                std::fputs(as_line(file, finding).c_str(), stdout);
        }
    }
    if (line.wants_json)
        std::printf("%s\n", json11::Json(array).dump().c_str());
    return status;
}

Status refuse(const std::string& why)
{
    std::fprintf(stderr, "zelmctl check: %s\n%s", printable(why).c_str(), USAGE);
    return TROUBLE;
}

// Why it can't be run; empty if it can.
std::string fault_of(const CommandLine& line)
{
    constexpr std::string_view SUBJECTS[] = {"appliance", "document", "manifest", "settings"};
    if (std::find(std::begin(SUBJECTS), std::end(SUBJECTS), line.subject) == std::end(SUBJECTS))
        return line.subject.empty() ? "document, settings, manifest, appliance or driver?"
                                    : "unknown word " + line.subject;
    if ((line.subject == "document") != line.driver.has_value())
        return line.driver ? "--driver is for documents" : "--driver WORD is missing";
    if (line.kind && line.subject != "settings")
        return "--kind is for settings";
    if (line.kind && !role_called(*line.kind))
        return "unknown kind " + *line.kind;
    return line.files.empty() ? "FILE is missing" : "";
}

}  // namespace

Status check(int argc, char** argv)
{
    if (argc > 1 && argv[1] == std::string_view("driver"))
        return check_driver(argc - 1, argv + 1);
    CommandLine line;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "--help" || word == "-h") {
            std::fputs(USAGE, stdout);
            return IS_SO;
        }
        if (word == "--json")
            line.wants_json = true;
        else if ((word == "--driver" || word == "--kind") && i + 1 == argc)
            return refuse(word + " wants a word");
        else if (word == "--driver")
            line.driver = argv[++i];
        else if (word == "--kind")
            line.kind = argv[++i];
        else if (word.starts_with('-') && word != "-")
            return refuse("unknown switch " + word);
        else if (line.subject.empty())
            line.subject = word;
        else
            line.files.push_back(word);
    }
    const std::string fault = fault_of(line);
    return fault.empty() ? check_files(line) : refuse(fault);
}
