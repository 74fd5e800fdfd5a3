#include "zelmctl/check/driver/verdict.hpp"

const Verdict& Verdicts::of(const Rule& rule)
{
    std::optional<Verdict>& verdict = m_verdicts[rule.number];
    if (!verdict)
        verdict = reach(rule);
    return *verdict;
}

// The broken rule for which the premises don't hold; empty if they do.
std::string Verdicts::want_of(const Rule& rule)
{
    for (const Rule& premise : driver_rules()) {
        if ((rule.premises & set_of(premise.number)) == 0)
            continue;
        const Verdict& verdict = of(premise);
        if (verdict.result == Judgement::NOT_TRIED)
            return verdict.message;
        if (verdict.result == Judgement::BROKEN)
            return "rule " + std::to_string(premise.number) + " is broken";
    }
    return rule.number == rule::MANIFEST && !m_trial.program().manifest ? NO_MANIFEST : "";
}

// What broke a rule may be in no state for the next one.
Verdict Verdicts::reach(const Rule& rule)
{
    if (std::string want = want_of(rule); !want.empty())
        return {Judgement::NOT_TRIED, std::move(want)};
    std::string message = rule.fault(m_trial);
    if (message.empty())
        return {Judgement::KEPT};
    m_trial.do_away();
    return {Judgement::BROKEN, std::move(message)};
}
