#include "zelmctl/outcome.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sys/wait.h>

#include "zelmctl/options.hpp"
#include "zelmctl/printable.hpp"

using json11::Json;
using Result = Outcome::Result;

namespace {

// In the order of the results.
constexpr const char* WORDS[] = {"running", "stopped", "answering", "ended", "timeout", "refused", "absent"};

const char* word_of(Result result)
{
    return WORDS[static_cast<std::size_t>(result)];
}

std::string seconds(std::uint64_t microseconds)
{
    char text[32];
    std::snprintf(text, sizeof text, "%g s", static_cast<double>(microseconds) / 1e6);
    return text;
}

Json::object as_json(const Outcome& outcome)
{
    Json::object object{{"result", word_of(outcome.result)}};
    if (outcome.pid != 0)
        object["pid"] = outcome.pid;
    if (outcome.ending)
        add_ending(object, *outcome.ending);
    if (outcome.result == Result::REFUSED)
        object["error"] = outcome.text;
    return object;
}

}  // namespace

Outcome not_to_be_seen()
{
    return {Result::REFUSED, TROUBLE, 0, {}, "you may not see who serves it"};
}

void add_ending(Json::object& object, int ending)
{
    if (WIFSIGNALED(ending))
        object["signal"] = WTERMSIG(ending);
    else
        object["status"] = WEXITSTATUS(ending);
}

std::string text_of(const Outcome& outcome, std::uint64_t timeout_us)
{
    switch (outcome.result) {
    case Result::TIMEOUT: return outcome.text + " after " + seconds(timeout_us);
    case Result::REFUSED: return "refused, " + outcome.text;
    case Result::ENDED:
        if (!outcome.ending)
            return "ended at once";
        return WIFSIGNALED(*outcome.ending)
                   ? "ended at once, signal " + std::to_string(WTERMSIG(*outcome.ending))
                   : "ended at once, status " + std::to_string(WEXITSTATUS(*outcome.ending));
    default:
        return word_of(outcome.result) +
               (outcome.pid != 0 ? ", " + std::to_string(outcome.pid) : std::string());
    }
}

void Outcomes::tell(const ItemId& item, const Outcome& outcome)
{
    m_status = std::max(m_status, outcome.status);
    if (outcome.status == TROUBLE)
        complain_of(item, outcome.text);
    if (m_json) {
        m_kinds[plural(*item.role)][item.name] = as_json(outcome);
        return;
    }
    std::printf("%s: %s\n", printable(item).c_str(), printable(text_of(outcome, m_timeout_us)).c_str());
    if (std::fflush(stdout) != 0 && m_error == 0)
        m_error = errno;
}

Status Outcomes::finish()
{
    if (m_json) {
        Json::object object;
        for (const auto& [kind, items] : m_kinds)
            object[kind] = items;
        std::printf("%s\n", Json(object).dump().c_str());
    }
    if (m_error == 0)
        return m_status;
    std::clearerr(stdout);
    return complain(std::strerror(m_error));
}
