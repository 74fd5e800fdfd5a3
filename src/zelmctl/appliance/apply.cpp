#include "zelmctl/appliance/apply.hpp"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "zelmctl/appliance/do_plan.hpp"
#include "zelmctl/appliance/turn.hpp"
#include "zelmctl/check/input_file.hpp"
#include "zelmctl/printable.hpp"

using json11::Json;

namespace {

constexpr char PLAN_HELP[] = R"(usage: zelmctl plan [--exact] [--prune] [--json] FILE

Says what apply would do with the file, a step a line, in the order of doing. It changes nothing. FILE may be "-",
standard input.

  --exact  settings that an item of the file doesn't name go
  --json   print one JSON object instead of a line a step
  --prune  items that the file doesn't name are stopped and go, of the kinds that it names

Exit status: 0 nothing to do, 1 something, 2 trouble.
)";

constexpr char APPLY_HELP[] = R"(usage: zelmctl apply [--exact] [--prune] [--json] [--timeout S] FILE

Brings the appliance to what the file says, and says each step when it is done. FILE may be "-", standard input.

  --exact      settings that an item of the file doesn't name go
  --json       print one JSON object at the end instead of a line a step
  --prune      items that the file doesn't name are stopped and go, of the kinds that it names
  --timeout S  wait so many seconds at most for what drivers are told, as many for what is stopped, and as many for
               what is started, 15 unless told

Exit status: 0 all is as the file says, 1 not all, 2 trouble, and nothing has changed.
)";

void complain_of_findings(const std::string& file, const Findings& findings)
{
    std::string lines;
    for (const Finding& finding : findings.all())
        lines += as_line(file, finding);
    std::fputs(lines.c_str(), stderr);
}

// IS_SO with the plan of the file, or TROUBLE, which has been said.
Status plan_of(const Options& options, Plan& plan)
{
    const std::string& file = options.words.front();
    if (options.words.size() > 1)
        return complain("unknown word " + options.words.back() + " behind the file");
    const Descriptor input = open_input(file, APPLIANCE_LIMIT);
    const auto text = input ? contents_of(input.get(), APPLIANCE_LIMIT) : std::nullopt;
    if (!text)
        return complain(file + ": " + reason_of_input());
    Findings findings, unknown;
    const WantedAppliance wanted = read_appliance(*text, findings, unknown);
    Status status = IS_SO;
    if (findings.all().empty())
        status = make_plan(wanted, options.exact, options.prune, plan, findings);
    complain_of_findings(file, unknown);
    complain_of_findings(file, findings);
    return findings.all().empty() ? status : TROUBLE;
}

void print(bool changes, Json::array steps)
{
    std::printf("%s\n", Json(Json::object{{"changed", changes}, {"steps", std::move(steps)}}).dump().c_str());
}

Status print_plan(const Options& options)
{
    Plan plan;
    if (plan_of(options, plan) != IS_SO)
        return TROUBLE;
    Json::array array;
    for (const auto& [item, step] : steps_of(plan))
        if (options.json)
            array.push_back(as_json(*item, *step));
        else
            std::puts(line_of(*item, *step).c_str());
    if (options.json)
        print(!plan.empty(), std::move(array));
    return plan.empty() ? IS_SO : IS_NOT_SO;
}

// What couldn't be written sets the error.
void tell(const PlannedItem& item, const Step& step, int& error)
{
    if (!step.is_done)
        std::fprintf(stderr, "zelmctl: %s: %s\n", line_of(item, step).c_str(), printable(step.error).c_str());
    else if (std::puts(line_of(item, step).c_str()) < 0 || std::fflush(stdout) != 0)
        error = errno;
}

Json outcome_of(const PlannedItem& item, const Step& step)
{
    Json::object object = as_json(item, step);
    object["done"] = step.is_done;
    if (!step.is_done)
        object["error"] = printable(step.error);
    return object;
}

Status apply(const Options& options)
{
    const Turn turn;
    Plan plan;
    if (!turn || plan_of(options, plan) != IS_SO || !may_do(plan))
        return TROUBLE;
    Status status = IS_SO;
    int error = 0;
    do_plan(plan, options.timeout_us, [&](const PlannedItem& item, const Step& step) {
        status = step.is_done ? status : IS_NOT_SO;
        if (!options.json)
            tell(item, step, error);
    });
    std::clearerr(stdout);
    if (!options.json)
        return error == 0 ? status : complain(std::strerror(error));
    Json::array steps;
    bool changes = false;
    for (const auto& [item, step] : steps_of(plan)) {
        changes |= step->is_done;
        steps.push_back(outcome_of(*item, *step));
    }
    print(changes, std::move(steps));
    return status;
}

}  // namespace

const Subcommand PLAN{"plan", "--exact --json --prune", Items::WORDS, PLAN_HELP, print_plan};
const Subcommand APPLY{"apply", "--exact --json --prune --timeout", Items::WORDS, APPLY_HELP, apply};
