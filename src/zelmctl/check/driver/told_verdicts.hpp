// How verdicts are told, on standard output.
#pragma once

#include <vector>

#include "zelmctl/check/driver/verdict.hpp"

struct JudgedRule {
    const Rule* rule;
    Verdict verdict;
};

// A line for a rule that is broken; and one for those that weren't tried for want of the same other one.
void print_if_broken(const JudgedRule& judged);
void print_not_tried(const std::vector<JudgedRule>& rules);

// All of them, as one JSON array, or as the test suite that JUnit writes.
void print_json(const std::vector<JudgedRule>& rules);
void print_junit(const std::vector<JudgedRule>& rules);

// What is asked: "NUMBER SECTION: SENTENCE".
void print_rules();
