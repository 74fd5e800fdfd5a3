#include "zelmctl/metrics.hpp"

#include <algorithm>
#include <array>
#include <cstdio>

#include "control/processes/uptime.hpp"
#include "zelmctl/asked_items.hpp"
#include "zelmctl/printable.hpp"
#include "zelmctl/replaced_file.hpp"

namespace {

constexpr char METRICS_HELP[] = R"(usage: zelmctl metrics [--timeout S] [-o FILE]

Prints how all items run in the text form of Prometheus.

  --timeout S  wait so many seconds at most for what the drivers answer, 15 unless told
  -o FILE      write it to the file, which has all of the new contents or all of the old ones at any time

Exit status: 0, also with items that hang, or 2 for trouble.
)";

enum class ItemState : std::uint8_t { RUNNING, STOPPED, HUNG };
constexpr const char* ITEM_STATES[] = {"running", "stopped", "hung"};  // in their order

// Of text that may hold anything.
std::string label(const char* name, std::string_view value)
{
    std::string text = std::string(name) + "=\"";
    for (const char c : in_utf8(value)) {
        text += c == '\\' || c == '"' || c == '\n' ? "\\" : "";
        text += c == '\n' ? 'n' : c;
    }
    return text + '"';
}

// What is told under one name, which stands together.
class Metric {
public:
    Metric(const char* name, const char* help) : m_name(name)
    {
        m_text = "# HELP " + m_name + " " + help + "\n# TYPE " + m_name + " gauge\n";
    }
    void add(const std::string& labels, const std::string& value)
    {
        m_text += m_name + "{" + labels + "} " + value + "\n";
    }
    const std::string& text() const { return m_text; }

private:
    std::string m_name;
    std::string m_text;
};

std::string with_two_decimals(double number)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.2f", number);
    return text;
}

class Metrics {
public:
    // An item of which can't be known whether it runs counts nowhere.
    void add(const AskedItem& item)
    {
        if (item.process.is_hidden)
            return;
        const ItemState state = !item.runs()          ? ItemState::STOPPED
                                : item.has_answered() ? ItemState::RUNNING
                                                      : ItemState::HUNG;
        ++m_counts[static_cast<std::size_t>(item.id.role - ROLES)][static_cast<std::size_t>(state)];
        const std::string labels = label("kind", item.id.role->word) + "," + label("name", item.id.name) +
                                   "," + label("driver", item.driver);
        m_running.add(labels, item.runs() ? "1" : "0");
        if (!item.runs())
            return;
        m_answers.add(labels, item.has_answered() ? "1" : "0");
        if (const auto start = start_time_of(item.process.pid))
            m_starts.add(labels, with_two_decimals(*start));
    }

    std::string text() const
    {
        Metric counts("zelm_items", "How many items of a kind are in a state.");
        for (const Role& role : ROLES)
            for (std::size_t i = 0; i < std::size(ITEM_STATES); ++i)
                counts.add(label("kind", role.word) + "," + label("state", ITEM_STATES[i]),
                    std::to_string(m_counts[static_cast<std::size_t>(&role - ROLES)][i]));
        return m_running.text() + m_answers.text() + m_starts.text() + counts.text();
    }

private:
    Metric m_running{"zelm_item_running", "Whether the item's driver runs."};
    Metric m_answers{"zelm_item_answers", "Whether the running driver has answered in time."};
    Metric m_starts{"zelm_item_start_time_seconds", "When the running driver has started, since 1970."};
    std::array<std::array<int, std::size(ITEM_STATES)>, std::size(ROLES)> m_counts{};
};

Status metrics(const Options& options)
{
    Metrics all;
    const Status status = ask_items(options, [&](const AskedItem& item) { all.add(item); });
    const std::string text = all.text();
    if (options.output_file.empty()) {
        std::fwrite(text.data(), 1, text.size(), stdout);
        return status;
    }
    return std::max(status, replace_file(options.output_file, text));
}

}  // namespace

const Subcommand METRICS{"metrics", "--timeout -o", Items::NONE, METRICS_HELP, metrics};
