// What the fuzzers of tests/fuzz start from, made of the tables of the documents.
#pragma once

#include <map>
#include <string>

// Files and what they hold: TARGET/NAME for each input of a target, and "dictionary" with the words of all,
// as libFuzzer reads them.
std::map<std::string, std::string> fuzz_seeds();
