#include "zelmctl/check/driver/check_driver.hpp"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>

#include "zelmctl/check/driver/custody.hpp"
#include "zelmctl/check/driver/told_verdicts.hpp"
#include "zelmctl/check/input_file.hpp"
#include "zelmctl/options.hpp"
#include "zelmctl/selection.hpp"

namespace {

constexpr char DRIVER_USAGE[] = R"(usage: zelmctl check driver [SWITCH...] -- PROGRAM [ARGUMENT...]
       zelmctl check driver --list

Starts the program as the tools would, "--file PATH" behind its arguments, for made-up items in a private directory,
and holds it against the rules of zelm-packets(5). Prints a line for each that it breaks.

  --kind KIND      of the items: channel, output, input or router; an output if nothing is said
  --type TYPE      of an input: what its settings file begins with
  --settings FILE  what the items' settings files hold; otherwise they are empty
  --manifest FILE  the driver's manifest, which is to have the keys that it reports
  --only RULE      only the rule of this number, and silently what it rests on; may be repeated
  --json           print all rules and their results as one JSON array
  --junit          print them as JUnit does
  --list           print the rules, and where in the page they stand

Exit status: 0 it keeps the rules, 1 it doesn't, 2 it could not be tried.
)";

struct DriverOptions {
    std::string kind = "output";
    std::string type;
    std::string settings_file;
    std::string manifest_file;
    std::string only;  // the last
    RuleSet rules = 0;
    bool json = false;
    bool junit = false;
    bool list = false;
    Arguments command;
};

constexpr struct {
    std::string_view name;
    std::string DriverOptions::*value;
} VALUES[] = {
    {"--kind", &DriverOptions::kind},
    {"--type", &DriverOptions::type},
    {"--settings", &DriverOptions::settings_file},
    {"--manifest", &DriverOptions::manifest_file},
    {"--only", &DriverOptions::only},
};

constexpr struct {
    std::string_view name;
    bool DriverOptions::*flag;
} FLAGS_OF_CHECK[] = {
    {"--json", &DriverOptions::json},
    {"--junit", &DriverOptions::junit},
    {"--list", &DriverOptions::list},
};

bool add_rule(DriverOptions& options)
{
    unsigned number = 0;
    const char* const end = options.only.data() + options.only.size();
    const auto [stopped, error] = std::from_chars(options.only.data(), end, number);
    if (error != std::errc() || stopped != end || number == 0 || number >= rule::BEHIND_THE_LAST)
        return false;
    options.rules |= set_of(number);
    return true;
}

// Takes a switch, with its value, off the front of the words. What is wrong with it; empty if nothing is.
std::string take(Arguments& words, DriverOptions& options)
{
    const std::string name = words.front();
    words.erase(words.begin());
    for (const auto& row : FLAGS_OF_CHECK)
        if (name == row.name)
            return options.*row.flag = true, "";
    const auto* row = std::find_if(
        std::begin(VALUES), std::end(VALUES), [&](const auto& each) { return name == each.name; });
    if (row == std::end(VALUES))
        return (name.starts_with('-') ? "unknown switch " : "unknown word ") + name;
    if (words.empty())
        return name + " wants a value";
    options.*row->value = words.front();
    words.erase(words.begin());
    return name != "--only" || add_rule(options) ? "" : "no rule: " + options.only;
}

std::string fault_of(const DriverOptions& options)
{
    const Role* role = role_called(options.kind);
    if (!role)
        return "unknown kind " + options.kind;
    const bool is_input = role->kind == ItemKind::INPUT;
    if (options.type.empty() ? is_input : !is_input)
        return is_input ? "an input has a --type" : "--type is for inputs";
    if (is_input && !find_input_type(options.type))
        return "unknown type " + options.type;
    return options.command.empty() && !options.list ? "a program is missing, behind --" : "";
}

std::string read_words(Arguments words, DriverOptions& options)
{
    std::string fault;
    while (fault.empty() && !words.empty() && words.front() != "--")
        fault = take(words, options);
    if (!words.empty() && words.front() == "--")
        options.command.assign(words.begin() + 1, words.end());
    return fault.empty() ? fault_of(options) : fault;
}

Status complain_of_file(const std::string& file, const char* why)
{
    return complain(file + ": " + why);
}

// Reads what the options name. False when that can't be, which has been said.
bool read_program(const DriverOptions& options, DriverProgram& program)
{
    program.command = options.command;
    program.role = role_called(options.kind);
    program.bare_settings = options.type.empty() ? "" : "#!" + options.type + "\n";
    program.settings = program.bare_settings;
    if (!options.settings_file.empty()) {
        const Descriptor file = open_input(options.settings_file);
        const auto text = file ? contents_of(file.get()) : std::nullopt;
        if (!text)
            return complain_of_file(options.settings_file, std::strerror(errno)), false;
        program.settings = *text;
    }
    if (!options.manifest_file.empty()) {
        const Descriptor file = open_input(options.manifest_file);
        if (!file)
            return complain_of_file(options.manifest_file, std::strerror(errno)), false;
        if (program.manifest.emplace().load_arglist(file.get()) != 0)
            return complain_of_file(options.manifest_file, "no manifest; zelmctl check manifest says why"),
                   false;
    }
    return true;
}

bool is_asked_for(const DriverOptions& options, const Rule& rule)
{
    return options.rules == 0 || (options.rules & set_of(rule.number)) != 0;
}

// A rule that was named and can't be tried leaves open what was asked.
Status status_of(const DriverOptions& options, const JudgedRule& judged)
{
    switch (judged.verdict.result) {
    case Judgement::KEPT: return IS_SO;
    case Judgement::BROKEN: return IS_NOT_SO;
    case Judgement::NOT_TRIED: break;
    }
    return options.rules == 0 ? IS_SO
                              : complain("rule " + std::to_string(judged.rule->number) + " can't be tried, " +
                                         judged.verdict.message);
}

// Of the rules that are asked for, or of all.
Status judge(const DriverOptions& options, Trial& trial)
{
    Verdicts verdicts(trial);
    std::vector<JudgedRule> judged;
    Status status = IS_SO;
    for (const Rule& rule : driver_rules()) {
        if (!is_asked_for(options, rule))
            continue;
        judged.push_back({&rule, verdicts.of(rule)});
        status = std::max(status, status_of(options, judged.back()));
        if (!options.json && !options.junit)
            print_if_broken(judged.back());
    }
    if (options.json)
        print_json(judged);
    if (options.junit)
        print_junit(judged);
    if (!options.json && !options.junit && options.rules == 0)
        print_not_tried(judged);
    return status;
}

Status try_driver(const DriverOptions& options, const DriverProgram& program, const std::string& directory)
{
    Trial trial(program, directory);
    if (const int error = trial.plain().error(); error != 0)
        return complain(program.command.front() + ": " + std::strerror(error));
    return judge(options, trial);
}

}  // namespace

Status check_driver(int argc, char** argv)
{
    DriverOptions options;
    const Arguments words(argv + 1, argv + argc);
    const auto end = std::find(words.begin(), words.end(), "--");
    if (std::find(words.begin(), end, "--help") != end || std::find(words.begin(), end, "-h") != end) {
        std::fputs(DRIVER_USAGE, stdout);
        return IS_SO;
    }
    const std::string fault = read_words(words, options);
    if (!fault.empty())
        return complain("check driver: " + fault + "; see zelmctl check driver --help");
    if (options.list) {
        print_rules();
        return IS_SO;
    }
    DriverProgram program{};
    if (!read_program(options, program))
        return TROUBLE;
    return in_custody([&](const std::string& directory) { return try_driver(options, program, directory); });
}
