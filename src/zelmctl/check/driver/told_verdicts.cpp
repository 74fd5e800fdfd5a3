#include "zelmctl/check/driver/told_verdicts.hpp"

#include <algorithm>
#include <cstdio>
#include <json11.hpp>
#include <map>

#include "zelmctl/printable.hpp"

namespace {

// In the order of the values.
constexpr const char* JUDGEMENTS[] = {"kept", "broken", "not tried"};

const char* told(Judgement judgement)
{
    return JUDGEMENTS[static_cast<std::size_t>(judgement)];
}

std::string in_xml(std::string_view text)
{
    std::string escaped;
    for (const char byte : printable(text)) {
        switch (byte) {
        case '&': escaped += "&amp;"; break;
        case '<': escaped += "&lt;"; break;
        case '"': escaped += "&quot;"; break;
        default: escaped += byte;
        }
    }
    return escaped;
}

long count(const std::vector<JudgedRule>& rules, Judgement judgement)
{
    return std::count_if(rules.begin(), rules.end(),
        [&](const JudgedRule& judged) { return judged.verdict.result == judgement; });
}

// " 7 11 14-53".
std::string in_ranges(const std::vector<int>& numbers)
{
    std::string ranges;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const bool goes_on = i > 0 && numbers[i] == numbers[i - 1] + 1;
        if (goes_on && i + 1 < numbers.size() && numbers[i + 1] == numbers[i] + 1)
            continue;
        ranges += (goes_on ? "-" : " ") + std::to_string(numbers[i]);
    }
    return ranges;
}

}  // namespace

void print_if_broken(const JudgedRule& judged)
{
    if (judged.verdict.result != Judgement::BROKEN)
        return;
    std::printf("rule %d: %s\n", judged.rule->number, printable(judged.verdict.message).c_str());
    std::fflush(stdout);
}

void print_not_tried(const std::vector<JudgedRule>& rules)
{
    std::map<std::string, std::vector<int>> numbers;  // by the reason
    for (const auto& [rule, verdict] : rules)
        if (verdict.result == Judgement::NOT_TRIED && verdict.message != NO_MANIFEST)
            numbers[verdict.message].push_back(rule->number);
    for (const auto& [reason, which] : numbers)
        std::printf("not tried, as %s:%s\n", reason.c_str(), in_ranges(which).c_str());
}

void print_json(const std::vector<JudgedRule>& rules)
{
    json11::Json::array array;
    for (const auto& [rule, verdict] : rules)
        array.push_back(json11::Json::object{{"rule", rule->number}, {"title", rule->sentence},
            {"result", told(verdict.result)}, {"message", printable(verdict.message)}});
    std::printf("%s\n", json11::Json(array).dump().c_str());
}

void print_junit(const std::vector<JudgedRule>& rules)
{
    std::printf(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuite name=\"zelmctl check driver\" tests=\"%zu\" "
        "failures=\"%ld\" skipped=\"%ld\">\n",
        rules.size(), count(rules, Judgement::BROKEN), count(rules, Judgement::NOT_TRIED));
    for (const auto& [rule, verdict] : rules) {
        std::printf("<testcase classname=\"zelm-packets.%s\" name=\"%d %s\"", in_xml(rule->section).c_str(),
            rule->number, in_xml(rule->sentence).c_str());
        if (verdict.result == Judgement::KEPT)
            std::puts("/>");
        else
            std::printf("><%s message=\"%s\"/></testcase>\n",
                verdict.result == Judgement::BROKEN ? "failure" : "skipped", in_xml(verdict.message).c_str());
    }
    std::puts("</testsuite>");
}

void print_rules()
{
    for (const Rule& rule : driver_rules())
        std::printf("%d %s: %s\n", rule.number, rule.section, rule.sentence);
}
