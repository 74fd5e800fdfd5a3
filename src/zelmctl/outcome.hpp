// What came of an item, and how it is told.
#pragma once

#include <cstdint>
#include <json11.hpp>
#include <optional>
#include <string>
#include <sys/types.h>

#include "zelmctl/selection.hpp"
#include "zelmctl/status.hpp"

struct Outcome {
    enum class Result : std::uint8_t { RUNNING, STOPPED, ANSWERING, ENDED, TIMEOUT, REFUSED, ABSENT };
    Result result;
    Status status;
    pid_t pid = 0;                // where it runs
    std::optional<int> ending{};  // where it ENDED, as of waitpid(2), if it is known
    std::string text{};           // of a TIMEOUT how it still is, of one that was REFUSED why
};

// The result of an item whose driver's process the caller may not see.
Outcome not_to_be_seen();

// In words, for people. A limit that has run out is told by its length.
std::string text_of(const Outcome& outcome, std::uint64_t timeout_us);

// "status" or "signal", and its number, added to an object.
void add_ending(json11::Json::object& object, int ending);

// Tells of the items on standard output: a line each as soon as it is known, or one object at the end.
class Outcomes {
public:
    Outcomes(bool json, std::uint64_t timeout_us) : m_json(json), m_timeout_us(timeout_us) {}

    void tell(const ItemId& item, const Outcome& outcome);

    // The status of all that was told; TROUBLE, which is said, if not all could be written.
    Status finish();

private:
    bool m_json;
    std::uint64_t m_timeout_us;
    Status m_status = IS_SO;
    int m_error = 0;  // of a line that couldn't be written
    std::map<std::string, json11::Json::object> m_kinds;
};
