// Which rules a driver keeps.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zelmctl/check/driver/rules.hpp"

constexpr char NO_MANIFEST[] = "no manifest is given";

enum class Judgement : std::uint8_t { KEPT, BROKEN, NOT_TRIED };

struct Verdict {
    Judgement result;
    std::string message{};  // why it isn't kept
};

class Verdicts {
public:
    explicit Verdicts(Trial& trial) : m_trial(trial), m_verdicts(rule::BEHIND_THE_LAST) {}

    // Tries the rule, and first what it rests on, once.
    const Verdict& of(const Rule& rule);

private:
    std::string want_of(const Rule& rule);
    Verdict reach(const Rule& rule);

    Trial& m_trial;
    std::vector<std::optional<Verdict>> m_verdicts;  // by the rules' numbers
};
